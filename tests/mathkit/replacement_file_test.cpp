// SPDX-License-Identifier: MIT
// Old files that are replaced as a whole or not at all, and those that are written in place.
#include "mathkit/replacement_file.h"

#include <gtest/gtest.h>

#include <sys/xattr.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

class Replacement : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "billiard-file-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        put(folder / "old", "old");
        fs::permissions(folder / "old", fs::perms(0604));
        fs::create_directory(folder / "links");
        fs::create_symlink("../old", folder / "links/link");
    }
    void TearDown() override { fs::remove_all(folder); }

    static void put(const fs::path& path, const char* text) { std::ofstream(path) << text; }

    static std::string read(const fs::path& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::ptrdiff_t entries() const {
        return std::distance(fs::recursive_directory_iterator(folder), {});
    }

    fs::path folder;
};

TEST_F(Replacement, TheOldFileStaysUntilTheNewOneIsKept) {
    for (const char* name : {"old", "links/link"}) {
        const std::string path = folder / name;
        put(path, "old");
        {
            const replacement_file file(path.c_str());
            put(file.path(), "half");
            EXPECT_EQ(read(path), "old");
        }
        EXPECT_EQ(read(path), "old");
        {
            replacement_file file(path.c_str());
            put(file.path(), "new");
            EXPECT_TRUE(file.keep());
        }
        EXPECT_EQ(read(folder / "old"), "new");
        EXPECT_EQ(fs::status(folder / "old").permissions(), fs::perms(0604));
        EXPECT_TRUE(fs::is_symlink(folder / "links/link"));
        EXPECT_EQ(entries(), 3) << "something is left behind";
    }
}

TEST_F(Replacement, WhatANewFileWouldNotEqualIsWrittenInPlace) {
    fs::create_hard_link(folder / "old", folder / "other");
    for (const std::string& path :
         {std::string(folder / "old"), std::string(folder / "new"), std::string(folder),
          std::string(folder / "old/below"), std::string("/dev/full"),
          std::string("/proc/self/comm"), std::string()}) {
        replacement_file file(path.c_str());
        EXPECT_EQ(file.path(), path);
        EXPECT_TRUE(file.keep());
    }
    EXPECT_EQ(entries(), 4);

    const std::string marked = folder / "marked"; // where the file system knows attributes
    put(marked, "");
    const bool has_mark = setxattr(marked.c_str(), "user.note", "x", 1, 0) == 0;
    EXPECT_EQ(replacement_file(marked.c_str()).path() == marked, has_mark);
}

TEST_F(Replacement, FailsWhereTheOldFileHasBecomeAFolder) {
    const std::string path = folder / "old";
    replacement_file file(path.c_str());
    fs::remove(path);
    fs::create_directory(path);
    EXPECT_FALSE(file.keep());
}

} // namespace
