// faults                    lets every file call of a save, of a start after an interrupted save,
//                           and of an export fail in turn, or end the process: no list may be lost
// faults save|export PATH N TEXT   writes N rows of a text into the folder PATH
// faults saved|exported PATH N     prints the text of all N rows there, "none" or "lost"

#include "faults/FaultyCalls.h"
#include "platform/Files.h"
#include "platform/TextOutputStream.h"
#include "settings/Preferences.h"
#include "support/TestDesktop.h"

#include <cerrno>
#include <cstdio>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

using namespace skyvert;
namespace fs = std::filesystem;

namespace {

constexpr int kRows = 200;

Preferences settings(const fs::path& folder) {
    return {folder, "", "Preferences.xml"};
}

void save(const fs::path& folder, const std::string& text, int rows = kRows) {
    Preferences preferences = settings(folder);
    for (int row = 0; row < rows; ++row)
        preferences.setValue("row " + std::to_string(row), text);
    preferences.Close();
}

std::string saved(const fs::path& folder, int rows = kRows) {
    const Preferences preferences = settings(folder);
    std::set<std::string> texts;
    for (int row = 0; row < rows; ++row)
        texts.insert(preferences.Value("row " + std::to_string(row), "none").stringValue());
    return texts.size() == 1 ? *texts.begin() : "lost";
}

void exportRows(const fs::path& folder, const std::string& text, int rows = 100 * kRows) {
    TextOutputStream stream = TextOutputStream::Create(folder / "list.txt");
    for (int row = 0; row < rows; ++row)
        stream.WriteLine(text);
    stream.Close();
}

std::string exported(const fs::path& folder, int rows = 100 * kRows) {
    const auto content = readWholeFile(folder / "list.txt");
    const std::string line = content ? content->substr(0, content->find('\n') + 1) : "none\n";
    std::string whole;
    while (content && whole.size() < line.size() * static_cast<std::size_t>(rows))
        whole += line;
    return content.value_or("") == whole ? line.substr(0, line.size() - 1) : "lost";
}

struct Scenario {
    const char* name;
    const char* allowed; ///< the texts that may be there after the fault
    void (*prepare)(const fs::path& folder);
    void (*act)(const fs::path& folder); ///< meets the fault
    std::string (*outcome)(const fs::path& folder);
};

std::string savedRows(const fs::path& folder) {
    return saved(folder);
}

std::string exportedRows(const fs::path& folder) {
    return exported(folder);
}

void nothing(const fs::path&) {}

void saveOld(const fs::path& folder) {
    save(folder, "old");
}

void saveNew(const fs::path& folder) {
    save(folder, "new");
}

void exportOld(const fs::path& folder) {
    exportRows(folder, "old");
}

void exportNew(const fs::path& folder) {
    exportRows(folder, "new");
}

void start(const fs::path& folder) {
    settings(folder).Close();
}

void saveThroughLink(const fs::path& folder) {
    fs::create_symlink("target", folder / "Preferences.xml");
    saveOld(folder);
}

void cutSaveShort(const fs::path& folder) {
    saveOld(folder);
    fs::copy_file(folder / "Preferences.xml", folder / "Preferences.xml.new");
    fs::resize_file(folder / "Preferences.xml", 1000);
}

const Scenario kScenarios[] = {
    {"save", "old new", saveOld, saveNew, savedRows},
    {"first save", "none new", nothing, saveNew, savedRows},
    {"save through a link", "old new", saveThroughLink, saveNew, savedRows},
    {"start after a save cut short", "old", cutSaveShort, start, savedRows},
    {"save after one cut short", "old new", cutSaveShort, saveNew, savedRows},
    {"export", "old new", exportOld, exportNew, exportedRows},
    {"first export", "none new", nothing, exportNew, exportedRows}};

/// Acts in a process of its own. False when it came to its end before the fault.
bool meets(const Fault& fault, const Scenario& scenario, const fs::path& folder) {
    if (fork() == 0) {
        armFault(fault);
        try {
            scenario.act(folder);
        } catch (const FileError&) { // which is all that an export may throw
        }
        _exit(faultOccurred() ? 0 : 1);
    }
    int status = 0;
    wait(&status);
    if (WIFSIGNALED(status) && fault.error != kDeath)
        std::printf("%s: ended by signal %d\n", scenario.name, WTERMSIG(status));
    return !WIFEXITED(status) || WEXITSTATUS(status) == 0;
}

/// What a fault did: a list that is lost, or a file that the next run leaves behind.
std::string damage(const Scenario& scenario, const fs::path& folder) {
    const std::string outcome = scenario.outcome(folder);
    if (std::string(scenario.allowed).find(outcome) == std::string::npos)
        return "the rows are " + outcome;
    scenario.act(folder);
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".new" || entry.path().extension() == ".tmp")
            return entry.path().filename().string() + " is left behind";
    return "";
}

/// Puts the fault into every call in turn. Returns in how many, and counts what it did.
int tryFault(Fault fault, const Scenario& scenario, int& damages) {
    for (;; ++fault.call) {
        const TemporaryFolder folder;
        scenario.prepare(folder.path());
        if (!meets(fault, scenario, folder.path()))
            return fault.call - 1;
        if (const std::string found = damage(scenario, folder.path()); !found.empty())
            std::printf("%s, call %d%s, error %d: %s\n", scenario.name, fault.call,
                        fault.lasts ? " and later" : "", fault.error, (++damages, found.c_str()));
    }
}

int tryFaults() {
    int faults = 0, damages = 0;
    for (const Scenario& scenario : kScenarios) {
        for (const int error : {kDeath, kShortWrite, EINTR, EIO, ENOSPC, EACCES, EROFS, EMFILE})
            faults += tryFault({1, error, false}, scenario, damages);
        for (const int error : {kShortWrite, EIO, ENOSPC})
            faults += tryFault({1, error, true}, scenario, damages);
    }
    std::printf("%d faults; %d lists lost or files left behind\n", faults, damages);
    return damages > 0 || faults == 0 ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv, argv + argc);
    if (words.size() == 1)
        return tryFaults();
    const int rows = std::stoi(words.at(3));
    if (words[1] == "save")
        save(words[2], words.at(4), rows);
    else if (words[1] == "export")
        exportRows(words[2], words.at(4), rows);
    else
        std::puts((words[1] == "saved" ? saved(words[2], rows) : exported(words[2], rows)).c_str());
}
