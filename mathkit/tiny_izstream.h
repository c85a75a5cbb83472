// SPDX-License-Identifier: MIT
// Reads a zlib stream from another stream and gives what it holds.
#pragma once

#include <istream>
#include <memory>
#include <streambuf>

struct z_stream_s;

/// Inflates one zlib stream that is read from another buffer. What follows it there is left
/// unread only as far as it was not fetched yet.
///
/// A stream that is damaged, or ends before its end mark, throws TError from the read that meets
/// the damage, and from every later one; what was inflated before it has been given by then. The
/// operations of std::istream turn that into badbit, as they do with any exception.
class tiny_izbuf : public std::streambuf {
public:
    /// `source` is not owned and must outlive the buffer; null counts as a stream cut short.
    explicit tiny_izbuf(std::streambuf* source);
    ~tiny_izbuf() override;
    tiny_izbuf(const tiny_izbuf&) = delete;
    tiny_izbuf& operator=(const tiny_izbuf&) = delete;

    /// Whether the whole stream was read, up to its end mark, and its checksum is right.
    bool complete() const { return state == stage::ended; }

protected:
    int_type underflow() override;

private:
    enum class stage { reading, ended, failed };

    bool fetch();
    [[noreturn]] void fail(const char* reason);

    static constexpr int chunk = 4096;

    std::streambuf* source;
    std::unique_ptr<z_stream_s> inflater;
    stage state = stage::reading;
    char packed[chunk] = {};
    char plain[chunk] = {};
};

/// An input stream whose buffer is a tiny_izbuf.
class tiny_izstream : public std::istream {
public:
    explicit tiny_izstream(std::streambuf* source) : std::istream(nullptr), buffer(source) {
        std::ios::rdbuf(&buffer);
    }

    tiny_izbuf* rdbuf() const { return const_cast<tiny_izbuf*>(&buffer); }

private:
    tiny_izbuf buffer;
};
