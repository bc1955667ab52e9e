// Threads that a script starts and never stops do not keep the process from ending.
#include "tests/host/CommandProcess.h"

#include <doctest/doctest.h>

using namespace orvane::host;

TEST_CASE("Threads and pools that a script left running end with the command") {
    const TestFolder folder;
    folder.write("script.py", "import concurrent.futures, threading, time\n"
                              "pool = concurrent.futures.ThreadPoolExecutor()\n"
                              "def Configure(unit): pass\n"
                              "def forever():\n    while True: time.sleep(0.01)\n"
                              "def Calculate(unit):\n"
                              "    print(pool.submit(pow, 2, 5).result())\n"
                              "    threading.Thread(target=forever).start()\n");
    const std::string file =
        folder.write("case.toml", "[package]\ncompounds = [\"methane\"]\n[unit]\nscript = \"script.py\"\n");
    const Finished run = command({"run", file});
    CHECK_MESSAGE(run.exitCode == 0, run.error);
    CHECK(run.out.find("32") != std::string::npos);
    CHECK(run.seconds < 20);
}
