// Runs the built curvemill-cli (CURVEMILL_CLI_PATH) on an argument list and collects what it says.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdlib.h>

#include <csignal>
#include <cstdlib>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <ostream>
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
        const auto limit = [](int resource, long bytes) {
            const rlimit value{static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
            if (bytes >= 0) {
                setrlimit(resource, &value);
            }
        };
        limit(RLIMIT_AS, setting.memoryLimit);
        limit(RLIMIT_FSIZE, setting.fileSizeLimit);
        dup2(err[1], STDERR_FILENO);
        for (const std::string& name : setting.unsetVariables) {
            unsetenv(name.c_str());
        }
        std::signal(SIGXFSZ, SIG_IGN);  // an ignored signal stays ignored across exec
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

// A file's bytes, empty when it cannot be read.
inline std::string contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// A fresh folder of its own (parallel runs never share one), with a trailing '/'.
inline std::string freshFolder(const std::string& under) {
    std::string name = under + "curvemill_cli_XXXXXX";
    return mkdtemp(name.data()) != nullptr ? name + "/" : std::string();
}

// One row of a command table: exact stdout and status; a usage error (2) says its piece on
// stderr only, anything else keeps stderr empty, and no echoed word reaches the terminal as a
// control byte.
struct CliCase {
    std::vector<std::string> args;
    std::string out;
    int exitCode;
};

// Names the cases in test lists and failure messages: bytes escaped, long words shortened.
inline void PrintTo(const CliCase& c, std::ostream* os) {
    for (const std::string& a : c.args) {
        *os << '[';
        for (const char b : a.substr(0, 24)) {
            char shown[8];
            const bool plain = b > ' ' && b < 0x7f;
            std::snprintf(shown, sizeof shown, plain ? "%c" : "\\x%02x",
                          static_cast<unsigned char>(b));
            *os << shown;
        }
        *os << (a.size() > 24 ? "...(" + std::to_string(a.size()) + ")] " : std::string("] "));
    }
}

// Runs the row; returns what failed to match, empty when all did.
inline std::string checkCliCase(const CliCase& c) {
    const CliRun r = runCli(c.args);
    std::string failed;
    if (r.exitCode != c.exitCode) {
        failed += "exit " + std::to_string(r.exitCode) + "; ";
    }
    if (r.out != c.out) {
        failed += "stdout '" + r.out + "'; ";
    }
    const bool controlByte = std::any_of(r.err.begin(), r.err.end(), [](char b) {
        return (b >= 0 && b < ' ' && b != '\n') || b == 0x7f;
    });
    if (r.err.empty() != (c.exitCode != 2) || controlByte) {
        failed += "stderr '" + r.err + "'";
    }
    return failed;
}
