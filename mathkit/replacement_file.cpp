// SPDX-License-Identifier: MIT
// A new file that takes the place of an old one once it is whole.
#include "mathkit/replacement_file.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

// Whether a file may be replaced by another of its name and nobody sees the difference.
bool is_replaceable(const std::string& path, struct stat& old) {
    return stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode) && old.st_nlink == 1 &&
           access(path.c_str(), W_OK) == 0 && listxattr(path.c_str(), nullptr, 0) <= 0;
}

// An empty file in the folder of `path`, with the owner and permissions of `old`; its name, or
// none if there can be no such file.
std::string make_beside(const std::string& path, const struct stat& old) {
    std::string name = path.substr(0, path.rfind('/') + 1) + ".unfinished-XXXXXX";
    const int file = mkstemp(name.data());
    if (file < 0) return {};
    // The permissions after the owner: a change of owner may take some of them away.
    const bool alike =
        fchown(file, old.st_uid, old.st_gid) == 0 && fchmod(file, old.st_mode & 07777) == 0;
    close(file);
    if (alike) return name;
    unlink(name.c_str());
    return {};
}

} // namespace

replacement_file::replacement_file(const char* name) : target(name) {
    std::error_code none;
    const std::filesystem::path file = std::filesystem::canonical(target, none);
    struct stat old {};
    if (none || !is_replaceable(file, old)) return;
    unfinished = make_beside(file, old);
    if (!unfinished.empty()) target = file;
}

replacement_file::~replacement_file() {
    if (!unfinished.empty()) unlink(unfinished.c_str());
}

bool replacement_file::keep() {
    if (unfinished.empty()) return true;
    if (std::rename(unfinished.c_str(), target.c_str()) == 0) {
        unfinished.clear();
        return true;
    }
    std::error_code none;
    const auto over = std::filesystem::copy_options::overwrite_existing;
    return std::filesystem::copy_file(unfinished, target, over, none);
}
