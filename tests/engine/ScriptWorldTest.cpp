// What scripts do to the process around them, and what that process must be to the libraries they use.
#include "engine/PrivateData.h"
#include "engine/SearchPath.h"
#include "tests/engine/RecordingUnit.h"
#include "tests/TemporaryFolder.h"

#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <thread>

using namespace orvane;
using orvane::test::TemporaryFolder;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// What Calculate prints; nothing may go wrong.
std::string printed(const std::string& body) {
    const CallTexts texts = RecordingUnit::calculate(body);
    CHECK_MESSAGE(texts.errors.empty(), texts.errors);
    return texts.output;
}

}  // namespace

TEST_CASE("A script's functions may be anything that can be called") {
    RecordingUnit unit("import functools\n"
                       "class Configurator:\n    def __call__(self, unit): print('called')\n"
                       "Configure = Configurator()\n"
                       "def work(word, unit): print(word)\n"
                       "Calculate = functools.partial(work, 'partial')\n"
                       "Validate = lambda unit: print('lambda')\n");
    CHECK(unit.call(FunctionKind::configure).output == "called\n");
    CHECK(unit.call(FunctionKind::calculate).output == "partial\n");
    CHECK(unit.call(FunctionKind::validate).output == "lambda\n");
}

TEST_CASE("A module's own __getattr__ gives functions, and its failure is told unless for Validate") {
    RecordingUnit unit("def __getattr__(name):\n    if name == 'Configure': return lambda unit: None\n"
                       "    raise RuntimeError('no ' + name)\n");
    CHECK(unit.call(FunctionKind::configure).errors.empty());
    CHECK(contains(unit.call(FunctionKind::calculate).errors, "RuntimeError: no Calculate"));
    CHECK(unit.call(FunctionKind::validate, false).errors.empty());
}

TEST_CASE("Megabytes of output arrive whole") {
    const std::string output = printed("for i in range(40):\n    print('x' * 250_000)");
    CHECK(output.size() == 40 * 250'001);
    const CallTexts failed = RecordingUnit::calculate("raise ValueError('y' * 5_000_000)");
    CHECK(failed.errors.size() > 5'000'000);
}

TEST_CASE("Recursion without end is an error, through Python and through C, on any thread") {
    // A host's thread has its own stack.
    std::thread([] {
        CHECK(contains(RecordingUnit::calculate("def f(): return f()\nf()").errors, "RecursionError"));
        CHECK(contains(RecordingUnit::calculate("import sys\nsys.setrecursionlimit(10**9)\nx = []\n"
                                                "for i in range(10**5): x = [x]\nrepr(x)")
                           .errors,
                       "RecursionError"));
    }).join();
    CHECK(printed("print('alive')") == "alive\n");
}

TEST_CASE("A script that replaces sys.stdout and sys.stderr does so for its own call alone") {
    CHECK(printed("import io, sys\nsys.stdout = sys.stderr = io.StringIO()\nprint('lost')").empty());
    CHECK(printed("print('heard')") == "heard\n");
    CHECK(contains(RecordingUnit::calculate("import sys\nsys.stdout.flush()").errors,
                   "AttributeError: 'capeopen_unit.OutputRedirector' object has no attribute 'flush'"));
}

TEST_CASE("An error that a call leaves behind does not meet the next one") {
    // A trace function that fails, an exception in a finalizer, a generator that will not close.
    RecordingUnit::calculate("import sys\nsys.settrace(1)");
    RecordingUnit::calculate("class C:\n    def __del__(self): raise ValueError('late')\nC()");
    RecordingUnit::calculate(
        "def g():\n    while True:\n        try: yield\n        except GeneratorExit: pass\n"
        "x = g(); next(x)");
    CHECK(printed("import sys\nsys.settrace(None)\nprint('clean')") == "clean\n");
}

TEST_CASE("Threads that outlive a call disturb neither it nor the next one") {
    RecordingUnit unit(
        "import threading, time\nstop = threading.Event()\n"
        "def work():\n    while not stop.is_set(): time.sleep(1e-3)\n"
        "thread = threading.Thread(target=work)\n"
        "def Calculate(unit):\n    thread.start()\n    print('started')\n"
        "def Validate(unit):\n    print(thread.is_alive())\n    stop.set()\n    thread.join()\n");
    CHECK(unit.call(FunctionKind::calculate).output == "started\n");
    CHECK(unit.call(FunctionKind::validate).output == "True\n");
}

TEST_CASE("The current folder and text beyond ASCII are the script's to use") {
    const TemporaryFolder folder("\u00e4\u4e2d\U0001f600");
    const std::filesystem::path before = std::filesystem::current_path();
    const std::string text = "\u00e4\u4e2d\U0001f600";
    CHECK(printed("import os\nos.chdir('" + folder.path().string() +
                  "')\nprint(os.path.basename(os.getcwd()))") == text + "\n");
    CHECK(printed("print('still here')") == "still here\n");
    std::filesystem::current_path(before);
    CHECK(
        contains(RecordingUnit::calculate("raise ValueError('" + text + "')").errors, "ValueError: " + text));
    CHECK(contains(RecordingUnit::calculate("\u00e4rger = 1\n\u00e4rger()").errors, "    \u00e4rger()"));
}

TEST_CASE("Libraries that plot or start processes find what suits a simulator") {
    CHECK(printed("import os\nprint(os.environ['MPLBACKEND'])") == "agg\n");
    const std::string python =
        printed("import multiprocessing.spawn as s, os\nprint(os.fsdecode(s.get_executable()))");
    CHECK_MESSAGE(contains(python, "python3.14"), python);
    CHECK(printed("import multiprocessing as m\n"
                  "with m.get_context('spawn').Pool(1) as pool: print(pool.map(abs, [-3]))") == "[3]\n");
}

TEST_CASE("A plotting back end that the user chose stays") {
    setenv("MPLBACKEND", "svg", 1);
    CHECK(printed("import os\nprint(os.environ['MPLBACKEND'])") == "svg\n");
}

TEST_CASE("PYTHONPATH joins the search path behind the installation, the user's site folder does not") {
    const TemporaryFolder home("home");
    const std::string user = home.path() / ".local/lib/python3.14/site-packages";
    std::filesystem::create_directories(user);
    setenv("HOME", home.path().c_str(), 1);
    unsetenv("PYTHONUSERBASE");
    setenv("PYTHONPATH", "/one::/two:", 1);
    unsetenv("VIRTUAL_ENV");
    const std::string path = printed("import sys\nfor p in sys.path: print('<' + p + '>')");
    // The interpreter's own start-up makes an empty entry the folder that it stands for.
    const std::string here = std::filesystem::current_path();
    CHECK_MESSAGE(path.ends_with("site-packages>\n</one>\n<" + here + ">\n</two>\n"), path);
    CHECK_FALSE(contains(path, user));
}

TEST_CASE("A virtual environment of this Python joins the search path at its end") {
    const TemporaryFolder folder("venv");
    const std::filesystem::path modules = folder.path() / "lib/python3.14/site-packages";
    folder.write("pyvenv.cfg", "home = /usr/bin\nversion = 3.14.2\n");
    folder.write("lib/python3.14/site-packages/of_venv.py", "value = 'from the environment'\n");
    folder.write("elsewhere/linked.py", "value = 'linked'\n");
    folder.write("lib/python3.14/site-packages/more.pth", (folder.path() / "elsewhere").string() + "\n");
    setenv("VIRTUAL_ENV", folder.path().c_str(), 1);
    setenv("PYTHONPATH", "/one", 1);
    CHECK(printed("import of_venv, linked\nprint(of_venv.value, linked.value)") ==
          "from the environment linked\n");
    CHECK(contains(printed("import sys\nfor p in sys.path: print('<' + p + '>')"),
                   "</one>\n<" + modules.string() + ">"));
}

TEST_CASE("A virtual environment is known by its settings, and must be for this Python") {
    struct Row {
        const char* settings;
        bool fits;
    };
    for (const Row& row :
         {Row{"version = 3.14.2\n", true}, Row{"home=/usr\r\nversion_info=3.14.0.final.0\r\n", true},
          Row{"version = 3.13.1\n", false}, Row{"version = 3.140.1\n", false},
          Row{"home = /opt/3.14.2\n", false}}) {
        CAPTURE(row.settings);
        const TemporaryFolder folder("venv");
        folder.write("pyvenv.cfg", row.settings);
        CHECK_FALSE(virtualEnvironmentPath(folder.path()));  // its folder of modules is missing
        folder.write("lib/python3.14/site-packages/README", "");
        CHECK(virtualEnvironmentPath(folder.path()).has_value() == row.fits);
    }
    CHECK_FALSE(virtualEnvironmentPath("/nowhere"));
}

TEST_CASE("Data that another session could not read is told at once, and all else is kept") {
    RecordingUnit unit("import dataclasses\n@dataclasses.dataclass\nclass State:\n    t: float\n"
                       "def Configure(unit): unit.private_data['a'] = [1.5, 'text']\n"
                       "def Validate(unit): unit.private_data['s'] = State(2)\n"
                       "def Calculate(unit): unit.private_data['s'] = lambda: 0\n");
    CHECK(storePrivateData(unit, unit.module).empty());
    CHECK(unit.warnings.empty());

    unit.call(FunctionKind::configure);
    const auto stored = storePrivateData(unit, unit.module);
    CHECK(unit.warnings.empty());
    RecordingUnit later("def Calculate(unit): print(unit.private_data)\n");
    restorePrivateData(stored, later);
    CHECK(later.call(FunctionKind::calculate).output == "{'a': [1.5, 'text']}\n");

    for (const FunctionKind kind : {FunctionKind::validate, FunctionKind::calculate}) {
        unit.call(kind);
        unit.warnings.clear();
        CHECK(storePrivateData(unit, unit.module).empty());
        REQUIRE(unit.warnings.size() == 1);
        CHECK(unit.warnings[0].starts_with("Error storing private_data: "));
        CHECK_MESSAGE(contains(unit.warnings[0],
                               kind == FunctionKind::validate ? "that the script defines" : "PicklingError"),
                      unit.warnings[0]);
    }
}

TEST_CASE("Data that cannot be read is a warning, and the unit keeps what it had") {
    RecordingUnit unit("def Configure(unit): unit.private_data['kept'] = 1\n"
                       "def Calculate(unit): print(unit.private_data)\n");
    unit.call(FunctionKind::configure);
    const std::string damaged = "\x80\x05}\x94\x8c";
    for (const std::string& bytes : {std::string(), damaged}) {
        unit.warnings.clear();
        restorePrivateData({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, unit);
        REQUIRE(unit.warnings.size() == 1);
        CHECK(unit.warnings[0].starts_with("Error storing private_data: "));
        CHECK(unit.call(FunctionKind::calculate).output == "{'kept': 1}\n");
    }
}

TEST_CASE("The documentation of unit reads whole") {
    const std::string help = printed("help(unit)");
    for (
        const char* part :
        {"class unit(", "It is passed as argument to functions such as Configure and Calculate",
         "optional=False,", "add_parameter(", "add_report(self, name, /)",
         "add_image(self, /, name, function)", "define_from(self, module, /)", "name -- name of the port",
         "allow_inconsistent_compounds", "Objects connected to ports.", "Parameter objects.",
         "Output file objects for printing reports.",
         "The validation_data dictionary is cleared prior to a call to Validate.", "persisted",
         "data in volatile_data is not persisted between sessions.",
         "direct or indirect references to external objects (streams, compounds, stream parameters) may not"})
        CHECK_MESSAGE(contains(help, part), std::string(part));
}
