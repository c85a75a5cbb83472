// SPDX-License-Identifier: MIT
// Streams on memory, for texts that are put together and data that is embedded.
#pragma once

#include "mathkit/kit_string.h"

#include <cstddef>
#include <istream>
#include <ostream>
#include <streambuf>

namespace kit {

/// Collects what is written in a block of memory that grows as needed.
///
/// The block is closed by no zero of its own: a caller that wants a C text writes one
/// (`stream.put('\0')`) and then reads data().
class ostringbuf : public std::streambuf {
public:
    ostringbuf() = default;
    ostringbuf(const ostringbuf&) = delete;
    ostringbuf& operator=(const ostringbuf&) = delete;

    /// Forgets what was written and makes room for `room` bytes.
    void reset(unsigned room);

    /// What was written so far; valid until the next write. Null only while nothing was written.
    const char* data() const { return block.data; }

    /// Bytes written so far.
    std::size_t size() const { return static_cast<std::size_t>(pptr() - pbase()); }

    /// The text up to the first zero byte.
    string str() const { return string(data(), size()); }

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;

private:
    void grow(std::size_t more);
    void set_area(std::size_t used);

    bvector block; ///< its size is the room, what is used ends at pptr()
};

/// An output stream whose buffer is an ostringbuf.
class ostringstream : public std::ostream {
public:
    ostringstream() : std::ostream(nullptr) { std::ios::rdbuf(&buffer); }

    ostringbuf* rdbuf() const { return const_cast<ostringbuf*>(&buffer); }

    /// As of the buffer.
    const char* data() const { return buffer.data(); }
    std::size_t size() const { return buffer.size(); }
    string str() const { return buffer.str(); }

private:
    ostringbuf buffer;
};

/// Reads from memory that someone else owns and keeps; it can be rewound and repositioned.
class istringbuf : public std::streambuf {
public:
    /// `size` bytes at `data`; null with 0 is an empty stream.
    istringbuf(const char* data, unsigned size);

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;
};

/// An input stream whose buffer is an istringbuf.
class istringstream : public std::istream {
public:
    istringstream(const char* data, unsigned size) : std::istream(nullptr), buffer(data, size) {
        std::ios::rdbuf(&buffer);
    }

    istringbuf* rdbuf() const { return const_cast<istringbuf*>(&buffer); }

private:
    istringbuf buffer;
};

} // namespace kit
