// SPDX-License-Identifier: MIT
// Old files that are replaced as a whole or not at all, and those that are written in place.
#include "mathkit/replacement_file.h"

#include "tests/folder.h"

#include <gtest/gtest.h>

#include <sys/xattr.h>

namespace {

namespace fs = std::filesystem;

class Replacement : public testing::Test {
protected:
    void SetUp() override {
        put_file(place / "old", "old");
        fs::permissions(place / "old", fs::perms(0604));
        fs::create_directory(place / "links");
        fs::create_symlink("../old", place / "links/link");
    }

    std::ptrdiff_t entries() const {
        return std::distance(fs::recursive_directory_iterator(place.path), {});
    }

    folder place;
};

TEST_F(Replacement, TheOldFileStaysUntilTheNewOneIsKept) {
    for (const char* name : {"old", "links/link"}) {
        const std::string path = place / name;
        put_file(path, "old");
        {
            const replacement_file file(path.c_str());
            put_file(file.path(), "half");
            EXPECT_EQ(content_of(path), "old");
        }
        EXPECT_EQ(content_of(path), "old");
        {
            replacement_file file(path.c_str());
            put_file(file.path(), "new");
            EXPECT_TRUE(file.keep());
        }
        EXPECT_EQ(content_of(place / "old"), "new");
        EXPECT_EQ(fs::status(place / "old").permissions(), fs::perms(0604));
        EXPECT_TRUE(fs::is_symlink(place / "links/link"));
        EXPECT_EQ(entries(), 3) << "something is left behind";
    }
}

TEST_F(Replacement, WhatANewFileWouldNotEqualIsWrittenInPlace) {
    fs::create_hard_link(place / "old", place / "other");
    for (const std::string& path :
         {place / "old", place / "new", place.path.string(), place / "old/below",
          std::string("/dev/full"), std::string("/proc/self/comm"), std::string()}) {
        replacement_file file(path.c_str());
        EXPECT_EQ(file.path(), path);
        EXPECT_TRUE(file.keep());
    }
    EXPECT_EQ(entries(), 4);

    const std::string marked = place / "marked"; // where the file system knows attributes
    put_file(marked, "");
    const bool has_mark = setxattr(marked.c_str(), "user.note", "x", 1, 0) == 0;
    EXPECT_EQ(replacement_file(marked.c_str()).path() == marked, has_mark);
}

TEST_F(Replacement, FailsWhereTheOldFileHasBecomeAFolder) {
    const std::string path = place / "old";
    replacement_file file(path.c_str());
    fs::remove(path);
    fs::create_directory(path);
    EXPECT_FALSE(file.keep());
}

} // namespace
