// SPDX-License-Identifier: MIT
// A new file that takes the place of an old one once it is whole.
#pragma once

#include <string>

/// Where to write what shall be the file of a name, so that an old file of that name is not lost
/// if the disk is full, or the process ends, half-way.
///
/// The new file is made beside the old one, with its owner, group and permissions; until keep() the
/// old one stays as it was. A symbolic link stays a link: the file it leads to is replaced.
///
/// Written in place, as ever, is what cannot be lost (no old file, a device) and what a new file
/// would not equal: one that may not be written, that has further names, access lists or
/// attributes, or an owner who cannot be given to the new one, or whose folder takes no new file.
///
/// A process that ends in between leaves the new file there, under a name that begins with
/// ".unfinished-".
class replacement_file {
public:
    explicit replacement_file(const char* name);
    replacement_file(const replacement_file&) = delete;
    replacement_file& operator=(const replacement_file&) = delete;

    /// Removes the new file unless it was kept.
    ~replacement_file();

    /// The name to open and to empty: that of the new file, or the one that was asked for.
    const char* path() const { return unfinished.empty() ? target.c_str() : unfinished.c_str(); }

    /// Puts the new file, which is closed and whole, in the old one's place; where the old one
    /// cannot make room, as a mounted file, it takes over the content. False if that fails too.
    bool keep();

private:
    std::string target;     ///< the name asked for, or the file that its links lead to
    std::string unfinished; ///< empty: written in place
};
