// SPDX-License-Identifier: MIT
// A file that is written from front to back and counts only when it is whole.
#pragma once

#include <cstddef>
#include <string>

struct stat; // of <sys/stat.h>

/// Writes a file so that an old one of its name is not lost if the disk is full, or the process
/// ends, half-way, and that no piece of a new one is left.
///
/// In an old file's place a new one is made beside it, with its owner, group and permissions; until
/// keep() the old one stays as it was. A symbolic link stays a link: the file it leads to is
/// replaced.
///
/// Written in place are a new name, what is no file (a device, a pipe), and what another file would
/// not equal: one that may not be written, that has further names, access lists or attributes, or
/// an owner who cannot be given to the new one, or whose folder takes no new file. Attributes whose
/// names begin with "security." do not count: there, the system gives them to every file.
///
/// A process that ends in between leaves what it has written, beside an old file under a name that
/// begins with ".unfinished-".
class whole_file {
public:
    /// Opens and empties the file. Waits for nothing: a pipe that nobody reads cannot be opened.
    explicit whole_file(const char* name);
    whole_file(const whole_file&) = delete;
    whole_file& operator=(const whole_file&) = delete;

    /// Takes back what was written, unless it was kept or went to what had been there in place.
    ~whole_file();

    /// False if nothing can be written under that name. On a disk that is full it is true, and
    /// keep() will fail.
    bool is_open() const { return can_open; }

    /// Writes at once. Once that has failed, nothing more is written. A pipe is given up when it
    /// takes nothing for some seconds.
    void write(const void* data, std::size_t bytes);

    /// Closes the file and puts it in the old one's place; where the old one cannot make room, as a
    /// mounted file, it takes over the content. False if not all of it was written.
    bool keep();

    /// Why it could not be opened, written or kept, in the words of the system.
    std::string reason() const;

private:
    void open_in_place();
    bool make_beside(const std::string& path, const struct stat& old);
    bool put_in_place();
    void fail(int error);
    void close();

    std::string target;     ///< the name asked for, or the file that its links lead to
    std::string unfinished; ///< what goes unless it is kept: a file beside `target`, or `target`
    int file = -1;          ///< open until keep()
    int failure = 0;        ///< the first error; 0: none
    bool can_open = true;
};
