// SPDX-License-Identifier: MIT
// Files that are written as a whole or not at all, and those that are written in place.
#include "mathkit/whole_file.h"

#include "tests/folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

namespace fs = std::filesystem;

class WholeFile : public testing::Test {
protected:
    void SetUp() override {
        put_file(place / "old", "old");
        fs::permissions(place / "old", fs::perms(0604));
        fs::create_directory(place / "links");
        fs::create_symlink("../old", place / "links/link");
        fs::create_symlink("../new", place / "links/new");
    }

    std::ptrdiff_t entries() const {
        return std::distance(fs::recursive_directory_iterator(place.path), {});
    }

    folder place;
};

TEST_F(WholeFile, NothingChangesUntilItIsKept) {
    const struct {
        const char *name, *written;
        std::string before;
    } cases[] = {{"old", "old", "old"},
                 {"links/link", "old", "old"},
                 {"new", "new", ""},
                 {"links/new", "new", ""}};
    for (const auto& c : cases) {
        const bool is_new = c.before.empty();
        const std::string path = place / c.name, written = place / c.written;
        if (!is_new) put_file(path, c.before);
        for (const bool full : {false, true}) {
            const full_disk limit(full ? 2 : RLIM_INFINITY);
            whole_file file(path.c_str());
            EXPECT_TRUE(file.is_open());
            EXPECT_EQ(content_of(path), c.before);
            file.write("new", 3);
            if (!full) continue;
            EXPECT_FALSE(file.keep());
            EXPECT_EQ(file.reason(), "File too large");
        }
        EXPECT_EQ(content_of(written), c.before);
        EXPECT_EQ(entries(), 4) << "something is left behind";

        whole_file file(path.c_str());
        file.write("new", 3);
        EXPECT_TRUE(file.keep());
        EXPECT_EQ(content_of(written), "new");
        EXPECT_EQ(entries(), is_new ? 5 : 4);
        EXPECT_EQ(fs::status(place / "old").permissions(), fs::perms(0604));
        EXPECT_TRUE(fs::is_symlink(place / "links/link"));
        if (is_new) fs::remove(written);
    }
}

// A number of the node that a name leads to: another one if the file was replaced.
ino_t node_of(const std::string& path) {
    struct stat found {};
    EXPECT_EQ(stat(path.c_str(), &found), 0) << path;
    return found.st_ino;
}

bool is_replaced(const std::string& path) {
    const ino_t before = node_of(path);
    whole_file file(path.c_str());
    file.write("new", 3);
    EXPECT_TRUE(file.keep());
    EXPECT_EQ(content_of(path), "new");
    return node_of(path) != before;
}

TEST_F(WholeFile, WhatANewFileWouldNotEqualIsWrittenInPlace) {
    EXPECT_TRUE(is_replaced(place / "old"));
    fs::create_hard_link(place / "old", place / "other");
    EXPECT_FALSE(is_replaced(place / "old"));

    for (const auto& [attribute, replaced] :
         {std::pair("user.note", false), {"security.note", true}}) {
        const std::string marked = put_file(place / attribute, "old");
        if (setxattr(marked.c_str(), attribute, "x", 1, 0) != 0) continue; // not known there
        EXPECT_EQ(is_replaced(marked), replaced) << attribute;
    }
}

TEST_F(WholeFile, TellsWhatCannotBeOpenedOrTakesNothing) {
    const std::string pipe = place / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<std::string, const char*> closed[] = {
        {place.path.string(), "Is a directory"},
        {place / "old/below", "Not a directory"},
        {place / "missing/file", "No such file or directory"},
        {"", "No such file or directory"},
        {pipe, "No such device or address"}};
    for (const auto& [path, reason] : closed) {
        whole_file file(path.c_str());
        EXPECT_FALSE(file.is_open()) << path;
        file.write("new", 3);
        EXPECT_FALSE(file.keep());
        EXPECT_EQ(file.reason(), reason);
    }
    EXPECT_EQ(entries(), 5);

    whole_file full("/dev/full");
    EXPECT_TRUE(full.is_open());
    full.write("new", 3);
    EXPECT_FALSE(full.keep());
    EXPECT_EQ(full.reason(), "No space left on device");
}

TEST_F(WholeFile, APipeIsWrittenAsLongAsSomebodyReadsIt) {
    std::signal(SIGPIPE, SIG_IGN);
    const std::string pipe = place / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    whole_file file(pipe.c_str());
    file.write("new", 3);
    char read_back[4] = "";
    EXPECT_EQ(read(reader, read_back, 4), 3);
    EXPECT_STREQ(read_back, "new");
    close(reader);
    file.write("new", 3);
    EXPECT_FALSE(file.keep());
    EXPECT_EQ(file.reason(), "Broken pipe");
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(WholeFile, IsNotKeptWhereTheOldFileHasBecomeAFolder) {
    const std::string path = place / "old";
    whole_file file(path.c_str());
    fs::remove(path);
    fs::create_directory(path);
    EXPECT_FALSE(file.keep());
}

} // namespace
