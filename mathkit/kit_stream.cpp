// SPDX-License-Identifier: MIT
// Streams on memory, for texts that are put together and data that is embedded.
#include "mathkit/kit_stream.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace kit {

// ---------------------------------------------------------------- ostringbuf

void ostringbuf::reset(unsigned room) {
    block.free();
    if (room) block.setsize(room);
    set_area(0);
}

// The put area is the whole block; pbump takes an int, so that long texts need several steps.
void ostringbuf::set_area(std::size_t used) {
    setp(block.data, block.data + block.size);
    while (used > 0) {
        const std::size_t step = std::min<std::size_t>(used, INT_MAX);
        pbump(static_cast<int>(step));
        used -= step;
    }
}

void ostringbuf::grow(std::size_t more) {
    const std::size_t used = size();
    block.setsize(std::max<std::size_t>(used + more, std::max<std::size_t>(64, used * 2)));
    set_area(used);
}

ostringbuf::int_type ostringbuf::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    grow(1);
    return sputc(traits_type::to_char_type(c));
}

std::streamsize ostringbuf::xsputn(const char* text, std::streamsize count) {
    if (count <= 0) return 0;
    const auto bytes = static_cast<std::size_t>(count);
    if (static_cast<std::size_t>(epptr() - pptr()) < bytes) grow(bytes);
    const std::size_t used = size();
    std::memcpy(block.data + used, text, bytes);
    set_area(used + bytes);
    return count;
}

// ---------------------------------------------------------------- istringbuf

istringbuf::istringbuf(const char* data, unsigned size) {
    // The get area takes no const pointer; nothing here writes through it.
    char* const start = const_cast<char*>(data);
    setg(start, start, data ? start + size : start);
}

istringbuf::pos_type istringbuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                         std::ios_base::openmode which) {
    const pos_type refused(off_type(-1));
    if (!(which & std::ios_base::in)) return refused;
    const off_type end = egptr() - eback();
    off_type base = 0;
    if (way == std::ios_base::cur) base = gptr() - eback();
    if (way == std::ios_base::end) base = end;
    if (offset < -base || offset > end - base) return refused;
    setg(eback(), eback() + (base + offset), egptr());
    return pos_type(base + offset);
}

istringbuf::pos_type istringbuf::seekpos(pos_type position, std::ios_base::openmode which) {
    return seekoff(off_type(position), std::ios_base::beg, which);
}

} // namespace kit
