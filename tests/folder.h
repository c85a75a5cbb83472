// SPDX-License-Identifier: MIT
// A folder of a test's own, whole files, and a disk without room.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

/// Made at construction, gone with all that is in it at destruction.
class folder {
public:
    folder() {
        std::string pattern = std::filesystem::temp_directory_path() / "billiard-XXXXXX";
        if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp");
        path = pattern;
    }
    folder(const folder&) = delete;
    folder& operator=(const folder&) = delete;
    ~folder() { std::filesystem::remove_all(path); }

    /// The path of an entry, there or not.
    std::string operator/(const std::string& name) const { return path / name; }

    std::filesystem::path path;
};

inline std::string content_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Writes a whole file, with noughts up to a larger size; gives its path.
inline std::string put_file(const std::string& path, const std::string& content,
                            std::uintmax_t size = 0) {
    std::ofstream(path, std::ios::binary) << content;
    if (size > content.size()) std::filesystem::resize_file(path, size);
    return path;
}

/// While it lives, a file grows no larger than so many bytes.
class full_disk {
public:
    explicit full_disk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
        getrlimit(RLIMIT_FSIZE, &usual);
        const rlimit limit{bytes, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    full_disk(const full_disk&) = delete;
    full_disk& operator=(const full_disk&) = delete;
    ~full_disk() { setrlimit(RLIMIT_FSIZE, &usual); }

private:
    rlimit usual{};
};
