// SPDX-License-Identifier: MIT
// The reference-counted texts of the support library, narrow and wide.
#pragma once

#include <atomic>
#include <cstdarg>
#include <cstddef>
#include <cstdint>

namespace kit {

/// A counted block of bytes; texts and memory streams keep their characters in one.
///
/// The block is shared by handles through `refs`, which threads may change at a time: even texts
/// that no thread hands to another share the empty block.
struct bvector {
    char* data = nullptr;              ///< the bytes, owned; null while `capacity` is 0
    std::size_t size = 0;              ///< bytes in use
    std::size_t capacity = 0;          ///< bytes allocated
    std::atomic<std::int32_t> refs{1}; ///< handles that share the block

    bvector() = default;
    bvector(const bvector&) = delete;
    bvector& operator=(const bvector&) = delete;
    ~bvector() { free(); }

    /// Makes the block `n` bytes long; what it held before stays, new bytes are 0.
    void setsize(std::size_t n);

    /// Gives the bytes back; the block is then empty.
    void free();
};

/// A zero-terminated text of bytes; copies share it until one of them is changed.
///
/// The program's own texts are ASCII or Latin-1, a user's text may hold any byte but 0.
class string {
public:
    string();
    string(const char* text); // NOLINT: converting on purpose; null counts as empty
    string(const char* text, std::size_t length);
    string(const string& other);
    string& operator=(const string& other);
    ~string();

    const char* c_str() const { return body->data; }
    operator const char*() const { return body->data; }
    std::size_t length() const { return body->size - 1; }
    bool is_empty() const { return length() == 0; }

    /// Replaces the text by `format` filled in as the C library's printf does. Returns *this; a
    /// value that cannot be converted leaves the text empty.
    string& sprintf(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// The same with the arguments in a list, which is then used up.
    string& vsprintf(const char* format, va_list arguments) __attribute__((format(printf, 2, 0)));

    /// The text that `format` and its arguments give.
    static string format(const char* format, ...) __attribute__((format(printf, 1, 2)));

    /// The text `a` followed by the text `b`.
    static string concat(const string& a, const string& b);

    /// The shared empty text.
    static const string& empty();

    friend bool operator==(const string& a, const string& b);
    friend bool operator<(const string& a, const string& b); ///< as strcmp orders
    friend bool operator==(const string& a, const char* b);

private:
    void assign(const char* text, std::size_t length);
    void release();

    bvector* body; ///< never null; holds the characters and the closing zero
};

/// The same of wide characters.
class wstring {
public:
    wstring();
    wstring(const wchar_t* text); // NOLINT: converting on purpose; null counts as empty
    wstring(const wstring& other);
    wstring& operator=(const wstring& other);
    ~wstring();

    const wchar_t* c_str() const;
    operator const wchar_t*() const { return c_str(); }
    std::size_t length() const; ///< in characters
    bool is_empty() const { return length() == 0; }

    /// Replaces the text by the wide `format`, filled in as swprintf does, whatever its length.
    /// Returns *this; a value that cannot be converted leaves the text empty.
    wstring& sprintf(const wchar_t* format, ...);

    static const wstring& empty();

    friend bool operator==(const wstring& a, const wstring& b);

private:
    void assign(const wchar_t* text, std::size_t length);
    void release();

    bvector* body;
};

} // namespace kit
