// SPDX-License-Identifier: MIT
// The reference-counted texts of the support library, narrow and wide.
#include "mathkit/kit_string.h"

#include "mathkit/stderr_failed.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <utility>

namespace kit {

namespace {

// A block that holds a copy of `bytes` bytes of `text` and a closing zero of `zero` bytes.
bvector* make_body(const void* text, std::size_t bytes, std::size_t zero) {
    auto* body = new bvector;
    body->setsize(bytes + zero); // new bytes are 0, so the text is closed
    std::copy_n(static_cast<const char*>(text), bytes, body->data);
    return body;
}

// The empty texts share one block each, which is never given back: texts with static storage may
// outlive any other object.
bvector* empty_body(std::size_t zero) {
    static bvector* const narrow = make_body(nullptr, 0, 1);
    static bvector* const wide = make_body(nullptr, 0, sizeof(wchar_t));
    return zero == 1 ? narrow : wide;
}

bvector* shared(bvector* body) {
    ++body->refs;
    return body;
}

void drop(bvector* body) {
    if (--body->refs == 0) delete body;
}

} // namespace

// ---------------------------------------------------------------- bvector

void bvector::setsize(std::size_t n) {
    if (n > capacity) {
        // Half as much again, so that a text that grows byte by byte isn't copied each time.
        const std::size_t wanted = std::max(n, capacity + capacity / 2);
        data = static_cast<char*>(xrealloc(data, wanted));
        capacity = wanted;
    }
    if (n > size) std::memset(data + size, 0, n - size);
    size = n;
}

void bvector::free() {
    std::free(data);
    data = nullptr;
    size = capacity = 0;
}

// ---------------------------------------------------------------- string

string::string() : body(shared(empty_body(1))) {}

string::string(const char* text) : body(nullptr) {
    assign(text, text ? std::strlen(text) : 0);
}

string::string(const char* text, std::size_t length) : body(nullptr) {
    assign(text, text ? strnlen(text, length) : 0);
}

string::string(const string& other) : body(shared(other.body)) {}

string& string::operator=(const string& other) {
    string copy(other);
    std::swap(body, copy.body);
    return *this;
}

string::~string() {
    release();
}

void string::assign(const char* text, std::size_t length) {
    body = length ? make_body(text, length, 1) : shared(empty_body(1));
}

void string::release() {
    drop(body);
}

string& string::sprintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    vsprintf(format, arguments);
    va_end(arguments);
    return *this;
}

string& string::vsprintf(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    // The new text is built beside the old one, which may be among the arguments.
    bvector* const old = body;
    if (length > 0) {
        body = make_body(nullptr, 0, static_cast<std::size_t>(length) + 1);
        std::vsnprintf(body->data, body->size, format, again);
        body->setsize(std::strlen(body->data) + 1); // a "%c" of 0 ends the text
    } else {
        body = shared(empty_body(1));
    }
    va_end(again);
    drop(old);
    return *this;
}

string string::format(const char* format, ...) {
    string text;
    va_list arguments;
    va_start(arguments, format);
    text.vsprintf(format, arguments);
    va_end(arguments);
    return text;
}

string string::concat(const string& a, const string& b) {
    if (a.is_empty()) return b;
    if (b.is_empty()) return a;
    string joined;
    joined.release();
    joined.body = make_body(a.c_str(), a.length(), b.length() + 1);
    std::memcpy(joined.body->data + a.length(), b.c_str(), b.length());
    return joined;
}

const string& string::empty() {
    static const string* const text = new string; // outlives every static object that uses it
    return *text;
}

bool operator==(const string& a, const string& b) {
    return a.body == b.body || std::strcmp(a.c_str(), b.c_str()) == 0;
}

bool operator<(const string& a, const string& b) {
    return std::strcmp(a.c_str(), b.c_str()) < 0;
}

bool operator==(const string& a, const char* b) {
    return std::strcmp(a.c_str(), b ? b : "") == 0;
}

// ---------------------------------------------------------------- wstring

wstring::wstring() : body(shared(empty_body(sizeof(wchar_t)))) {}

wstring::wstring(const wchar_t* text) : body(nullptr) {
    assign(text, text ? std::wcslen(text) : 0);
}

wstring::wstring(const wstring& other) : body(shared(other.body)) {}

wstring& wstring::operator=(const wstring& other) {
    wstring copy(other);
    std::swap(body, copy.body);
    return *this;
}

wstring::~wstring() {
    release();
}

void wstring::assign(const wchar_t* text, std::size_t length) {
    constexpr std::size_t zero = sizeof(wchar_t);
    body = length ? make_body(text, length * sizeof(wchar_t), zero) : shared(empty_body(zero));
}

void wstring::release() {
    drop(body);
}

const wchar_t* wstring::c_str() const {
    // The block comes from the allocator and is aligned for any type.
    return reinterpret_cast<const wchar_t*>(body->data);
}

std::size_t wstring::length() const {
    return body->size / sizeof(wchar_t) - 1;
}

wstring& wstring::sprintf(const wchar_t* format, ...) {
    // vswprintf answers -1 both for a buffer that is too small and for a character that has no
    // wide form; a memory stream grows by itself and fails for the second cause only.
    wchar_t* text = nullptr;
    std::size_t size = 0;
    std::FILE* stream = open_wmemstream(&text, &size);
    int written = -1;
    if (stream) {
        va_list arguments;
        va_start(arguments, format);
        written = std::vfwprintf(stream, format, arguments);
        va_end(arguments);
        std::fclose(stream);
    }
    bvector* const old = body;
    assign(text, written > 0 ? std::wcslen(text) : 0);
    std::free(text);
    drop(old);
    return *this;
}

const wstring& wstring::empty() {
    static const wstring* const text = new wstring;
    return *text;
}

bool operator==(const wstring& a, const wstring& b) {
    return a.body == b.body || std::wcscmp(a.c_str(), b.c_str()) == 0;
}

} // namespace kit
