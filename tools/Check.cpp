#include "Check.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <iostream>
#include <optional>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "QZIFormLayout.h"
#include "TextReport.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// One input of the check: the single-input command and its arguments, or,
// for an input no command takes, its answer made here.
struct Input {
    std::vector<std::string> command;
    Json answer;
};

bool isCsv(const fs::path& path)
{
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), ::tolower);
    return extension == ".csv";
}

bool isStatements(const fs::path& path)
{
    return path.filename().string().rfind("HOT010", 0) == 0;
}

// The style version in a statements file name HOT010_3.0..., else 3.0.
std::string statementsVersion(const std::vector<fs::path>& files)
{
    for (const fs::path& file : files) {
        const std::string name = file.stem().string();
        if (name.rfind("HOT010_", 0) == 0)
            return name.substr(7, name.find('_', 7) - 7);
    }
    return "3.0";
}

Input unchecked(const std::string& path, const char* code, const std::string& hint, Language language)
{
    Json answer = {{"Command", "unknown"},     {"Arguments", {path}}, {"Result", ""},   {"DetailErrorInfo", ""},
                   {"Conformity", 0},          {"Verdict", "failed"}, {"Valid", false}, {"Hints", Json::array()},
                   {"Entries", Json::array()}};
    if (code)
        answer["Entries"].push_back(makeEntry(path, 0, 0, code, language));
    if (!hint.empty())
        answer["Hints"].push_back(hint);
    answer["Summary"] = {{"Entries", answer["Entries"].size()},
                         {"Blocking", answer["Entries"].size()},
                         {"Files", 1},
                         {"FilesWithFindings", 1}};
    return {{}, std::move(answer)};
}

Input fileInput(const fs::path& path, Language language)
{
    if (isStatements(path))
        return {{"xbrl", path.string(), statementsVersion({path})}, {}};
    const std::optional<QZIFormLayout::Form> form = QZIFormLayout::Recognize(path.string());
    if (!form)
        return unchecked(path.string(), kUnknownForm, "", language);
    const char* command = form->operation == QZIFormLayout::Operation::Detail    ? "detail"
                          : form->operation == QZIFormLayout::Operation::Detail2 ? "detail2"
                                                                                 : "appended";
    return {{command, path.string(), form->styleVersion}, {}};
}

// A folder holding statements files is checked as one; its other CSV files
// and its subfolders one by one, in name order.
void addFolder(const fs::path& folder, Language language, std::vector<Input>& inputs)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        entries.push_back(it->path());
    std::sort(entries.begin(), entries.end());
    std::vector<fs::path> statements;
    for (const fs::path& entry : entries) {
        if (isStatements(entry) && !fs::is_directory(entry, error))
            statements.push_back(entry);
    }
    if (!statements.empty())
        inputs.push_back({{"xbrl", folder.string(), statementsVersion(statements)}, {}});
    for (const fs::path& entry : entries) {
        if (fs::is_directory(entry, error))
            addFolder(entry, language, inputs);
        else if (isCsv(entry) && !isStatements(entry))
            inputs.push_back(fileInput(entry, language));
    }
}

std::vector<Input> expand(const std::vector<std::string>& paths, Language language)
{
    std::vector<std::string> listed;
    for (const std::string& path : paths) {
        if (path != "-") {
            listed.push_back(path);
            continue;
        }
        for (std::string line; std::getline(std::cin, line);) {
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            if (!line.empty())
                listed.push_back(line);
        }
    }
    std::vector<Input> inputs;
    std::error_code error;
    for (const std::string& path : listed) {
        if (fs::is_directory(path, error))
            addFolder(path, language, inputs);
        else if (fs::exists(path, error))
            inputs.push_back(fileInput(path, language));
        else
            inputs.push_back(unchecked(path, nullptr,
                                       path + Text{" は存在しません。", " does not exist."}(language), language));
    }
    return inputs;
}

// One worker process: the tool itself running one single-input command.
struct Worker {
    size_t input;
    pid_t pid;
    int output;
    std::string text;
};

std::optional<Worker> start(size_t index, const Input& input, Language language)
{
    std::vector<std::string> arguments = {"qzcsvconv", "--json", "--lang",
                                          language == Language::English ? "en" : "ja"};
    arguments.insert(arguments.end(), input.command.begin(), input.command.end());
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);

    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0)
        return std::nullopt;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = -1;
    const int spawned = ::posix_spawn(&pid, "/proc/self/exe", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    if (spawned != 0) {
        ::close(pipe[0]);
        return std::nullopt;
    }
    return Worker{index, pid, pipe[0], ""};
}

// The answer a worker printed, or an entry saying that it gave none.
Json finish(Worker& worker, const Input& input, Language language)
{
    ::close(worker.output);
    int status = 0;
    while (::waitpid(worker.pid, &status, 0) < 0 && errno == EINTR) {
    }
    Json answer = Json::parse(worker.text, nullptr, false);
    if (!answer.is_discarded() && answer.is_object())
        return answer;
    const std::string ended = WIFEXITED(status) ? "exit status " + std::to_string(WEXITSTATUS(status))
                                                : "signal " + std::to_string(WTERMSIG(status));
    return unchecked(input.command.size() > 1 ? input.command[1] : "", kNoAnswer, ended, language).answer;
}

// The progress line on a terminal, while more than a second of work remains.
void showProgress(size_t done, size_t total, Clock::time_point started, bool& shown)
{
    if (!::isatty(STDERR_FILENO) || done == 0 || done == total)
        return;
    const double elapsed = std::chrono::duration<double>(Clock::now() - started).count();
    const double remaining = elapsed / static_cast<double>(done) * static_cast<double>(total - done);
    if (remaining <= 1.0 && !shown)
        return;
    std::fprintf(stderr, "\r%zu/%zu ... %.0f s left   ", done, total, remaining);
    shown = true;
}

}  // namespace

Json runCheck(const CheckOptions& options)
{
    const Clock::time_point started = Clock::now();
    std::vector<Input> inputs = expand(options.paths, options.language);
    const unsigned cores = std::max(1L, ::sysconf(_SC_NPROCESSORS_ONLN));
    const size_t jobs = options.jobs > 0 ? options.jobs : cores;

    std::vector<Json> answers(inputs.size());
    std::vector<bool> ready(inputs.size(), false);
    std::deque<size_t> waiting;
    for (size_t i = 0; i < inputs.size(); ++i) {
        if (inputs[i].command.empty()) {
            answers[i] = std::move(inputs[i].answer);
            ready[i] = true;
        } else {
            waiting.push_back(i);
        }
    }
    size_t done = inputs.size() - waiting.size();
    size_t printed = 0;
    bool progressShown = false;
    auto printReady = [&] {
        for (; printed < answers.size() && ready[printed]; ++printed) {
            if (options.json)
                continue;
            if (progressShown)
                std::fprintf(stderr, "\r%40s\r", "");
            std::cout << "== [" << printed + 1 << "/" << answers.size() << "] "
                      << answers[printed]["Arguments"][0].get<std::string>() << "\n";
            printAnswer(std::cout, answers[printed], options.language);
            std::cout << "\n" << std::flush;
        }
    };

    std::vector<Worker> workers;
    while (!waiting.empty() || !workers.empty()) {
        while (!waiting.empty() && workers.size() < jobs) {
            const size_t index = waiting.front();
            waiting.pop_front();
            if (std::optional<Worker> worker = start(index, inputs[index], options.language)) {
                workers.push_back(std::move(*worker));
            } else {
                answers[index] = unchecked(inputs[index].command[1], kNoAnswer, "", options.language).answer;
                ready[index] = true;
                ++done;
            }
        }
        std::vector<pollfd> polls;
        for (const Worker& worker : workers)
            polls.push_back({worker.output, POLLIN, 0});
        if (!polls.empty() && ::poll(polls.data(), polls.size(), 500) < 0 && errno != EINTR)
            break;
        for (size_t i = polls.size(); i-- > 0;) {
            if (polls[i].revents == 0)
                continue;
            char buffer[65536];
            const ssize_t got = ::read(workers[i].output, buffer, sizeof buffer);
            if (got > 0) {
                workers[i].text.append(buffer, static_cast<size_t>(got));
                continue;
            }
            if (got < 0 && errno == EINTR)
                continue;
            const size_t index = workers[i].input;
            answers[index] = finish(workers[i], inputs[index], options.language);
            ready[index] = true;
            ++done;
            workers.erase(workers.begin() + static_cast<std::ptrdiff_t>(i));
        }
        printReady();
        showProgress(done, inputs.size(), started, progressShown);
    }
    printReady();
    if (progressShown)
        std::fprintf(stderr, "\r%40s\r", "");

    int64_t clean = 0;
    int64_t findings = 0;
    for (const Json& answer : answers) {
        clean += answer["Verdict"] == "clean" ? 1 : 0;
        findings += answer["Verdict"] == "findings" ? 1 : 0;
    }
    const int64_t total = static_cast<int64_t>(answers.size());
    const int64_t failed = total - clean - findings;
    const char* verdict = failed > 0 || total == 0 ? "failed" : findings > 0 ? "findings" : "clean";
    Json check = {
        {"Command", "check"},
        {"Arguments", options.paths},
        {"Verdict", verdict},
        {"Valid", std::string(verdict) == "clean"},
        {"Summary",
         {{"Inputs", total},
          {"Clean", clean},
          {"WithFindings", findings},
          {"Failed", failed},
          {"Seconds", std::chrono::duration<double>(Clock::now() - started).count()}}},
        {"Answers", std::move(answers)},
    };
    return check;
}
