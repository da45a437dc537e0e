// Runs the built curvemill-cli (CURVEMILL_CLI_PATH) on an argument list and collects what it says.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include <sstream>
#include <string>
#include <vector>

struct CliRun {
    int exitCode = -1;
    std::string out;
    std::string err;
};

inline std::string readAll(int fd) {
    std::string text;
    char buffer[4096];
    for (ssize_t n; (n = read(fd, buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<std::size_t>(n));
    }
    close(fd);
    return text;
}

// Where the child's surroundings differ from the test's.
struct CliSetting {
    std::vector<std::string> unsetVariables;
    long fileSizeLimit = -1;           // bytes; beyond it writes fail with EFBIG (-1: no limit set)
    long memoryLimit = -1;             // bytes of address space (-1: no limit set)
    const char* stdoutPath = nullptr;  // stdout goes to this file, or is closed for ""
};

inline CliRun runCli(const std::vector<std::string>& args, const CliSetting& setting = {}) {
    int out[2];
    int err[2];
    if (pipe(out) != 0 || pipe(err) != 0) {
        return {};
    }
    const pid_t child = fork();
    if (child == 0) {
        dup2(out[1], STDOUT_FILENO);
        if (setting.stdoutPath != nullptr) {
            close(STDOUT_FILENO);
            if (*setting.stdoutPath != '\0') {
                open(setting.stdoutPath, O_WRONLY);  // takes the lowest free descriptor: 1
            }
        }
        if (setting.memoryLimit >= 0) {
            const rlimit limit{static_cast<rlim_t>(setting.memoryLimit),
                               static_cast<rlim_t>(setting.memoryLimit)};
            setrlimit(RLIMIT_AS, &limit);
        }
        dup2(err[1], STDERR_FILENO);
        for (const std::string& name : setting.unsetVariables) {
            unsetenv(name.c_str());
        }
        if (setting.fileSizeLimit >= 0) {
            std::signal(SIGXFSZ, SIG_IGN);  // an ignored signal stays ignored across exec
            const rlimit limit{static_cast<rlim_t>(setting.fileSizeLimit),
                               static_cast<rlim_t>(setting.fileSizeLimit)};
            setrlimit(RLIMIT_FSIZE, &limit);
        }
        std::vector<char*> argv{const_cast<char*>(CURVEMILL_CLI_PATH)};
        for (const std::string& a : args) {
            argv.push_back(const_cast<char*>(a.c_str()));
        }
        argv.push_back(nullptr);
        execv(CURVEMILL_CLI_PATH, argv.data());
        _exit(127);
    }
    close(out[1]);
    close(err[1]);
    // stdout is read to its end first: stderr gets a line or two, far below a pipe's buffer, so
    // the child never blocks on it.
    CliRun run{-1, readAll(out[0]), readAll(err[0])};
    int status = 0;
    waitpid(child, &status, 0);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

// A command line split at its blanks, as the table rows write it.
inline std::vector<std::string> words(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> out;
    for (std::string word; in >> word;) {
        out.push_back(word);
    }
    return out;
}
