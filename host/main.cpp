// The orvane command. All of it stands in the library host, where tests reach it.
#include "host/CommandLine.h"
#include "host/System.h"

int main(int count, char** arguments) {
    using namespace orvane::host;
    prepareStreams();
    const std::vector<std::string> words = programArguments(count, arguments);
    std::vector<const char*> texts;
    for (const std::string& word : words) texts.push_back(word.c_str());
    return commandLine(static_cast<int>(texts.size()), texts.data());
}
