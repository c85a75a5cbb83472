// SPDX-License-Identifier: MIT
// A file that is written from front to back and counts only when it is whole.
#include "mathkit/whole_file.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

namespace {

constexpr int patience = 5000; // milliseconds that a pipe may take nothing

// Whether a file has attributes that a new one would not get by itself.
bool has_attributes(const char* path) {
    const ssize_t size = listxattr(path, nullptr, 0);
    if (size <= 0) return false;
    std::vector<char> names(static_cast<std::size_t>(size));
    if (listxattr(path, names.data(), names.size()) != size) return true; // they change just now
    constexpr const char* of_system = "security.";
    for (const char* name = names.data(); name < names.data() + size; name += strlen(name) + 1)
        if (strncmp(name, of_system, strlen(of_system)) != 0) return true;
    return false;
}

// Whether a file may be replaced by another of its name and nobody sees the difference.
bool is_replaceable(const char* path, struct stat& old) {
    return stat(path, &old) == 0 && S_ISREG(old.st_mode) && old.st_nlink == 1 &&
           access(path, W_OK) == 0 && !has_attributes(path);
}

bool is_full_disk(int error) {
    return error == ENOSPC || error == EDQUOT;
}

// Whether a write that was put off may be tried again.
bool may_retry(int file) {
    if (errno == EINTR) return true;
    pollfd room{file, POLLOUT, 0};
    return errno == EAGAIN && poll(&room, 1, patience) == 1;
}

} // namespace

whole_file::whole_file(const char* name) : target(name) {
    std::error_code none;
    const std::filesystem::path path = std::filesystem::canonical(target, none);
    struct stat old {};
    if (!none && is_replaceable(path.c_str(), old) && make_beside(path, old)) return;
    if (failure == 0) open_in_place();
}

whole_file::~whole_file() {
    if (file >= 0) close();
    if (!unfinished.empty()) unlink(unfinished.c_str());
}

// An empty file in the folder of `path`, with the owner and permissions of `old`. False if there
// can be none; on a full disk that is a failure, for in place the old content would be lost.
bool whole_file::make_beside(const std::string& path, const struct stat& old) {
    std::string name = path.substr(0, path.rfind('/') + 1) + ".unfinished-XXXXXX";
    file = mkostemp(name.data(), O_CLOEXEC);
    if (file < 0) {
        if (is_full_disk(errno)) fail(errno);
        return false;
    }
    // The permissions after the owner: a change of owner may take some of them away.
    if (fchown(file, old.st_uid, old.st_gid) != 0 || fchmod(file, old.st_mode & 07777) != 0) {
        close();
        unlink(name.c_str());
        return false;
    }
    target = path;
    unfinished = name;
    return true;
}

void whole_file::open_in_place() {
    const bool is_new = access(target.c_str(), F_OK) != 0 && errno == ENOENT;
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    file = open(target.c_str(), flags, 0666);
    if (file < 0) {
        fail(errno);
        can_open = is_full_disk(failure);
    } else if (is_new) { // also through a link that led nowhere
        std::error_code none;
        target = std::filesystem::canonical(target, none);
        unfinished = target;
    }
}

void whole_file::write(const void* data, std::size_t bytes) {
    const char* rest = static_cast<const char*>(data);
    while (bytes > 0 && failure == 0) {
        const ssize_t written = ::write(file, rest, bytes);
        if (written < 0) {
            const int error = errno;
            if (!may_retry(file)) fail(error);
            continue;
        }
        rest += written;
        bytes -= static_cast<std::size_t>(written);
    }
}

bool whole_file::keep() {
    if (file >= 0) close();
    return failure == 0 && put_in_place();
}

bool whole_file::put_in_place() {
    if (unfinished.empty()) return true;
    if (std::rename(unfinished.c_str(), target.c_str()) == 0) { // to itself, too
        unfinished.clear();
        return true;
    }
    std::error_code error;
    const auto over = std::filesystem::copy_options::overwrite_existing;
    std::filesystem::copy_file(unfinished, target, over, error);
    if (error) fail(error.value());
    return !error;
}

std::string whole_file::reason() const {
    return std::generic_category().message(failure);
}

void whole_file::fail(int error) {
    if (failure == 0) failure = error;
}

void whole_file::close() {
    if (::close(file) != 0) fail(errno);
    file = -1;
}
