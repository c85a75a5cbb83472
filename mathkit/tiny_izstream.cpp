// SPDX-License-Identifier: MIT
// Reads a zlib stream from another stream and gives what it holds.
#include "mathkit/tiny_izstream.h"

#include "mathkit/TError.h"

#include <zlib.h>

tiny_izbuf::tiny_izbuf(std::streambuf* source)
    : source(source),
      inflater(std::make_unique<z_stream_s>()) {
    if (inflateInit(inflater.get()) != Z_OK) throw TError("no memory to inflate a zlib stream");
}

tiny_izbuf::~tiny_izbuf() {
    inflateEnd(inflater.get());
}

void tiny_izbuf::fail(const char* reason) {
    state = stage::failed;
    throw TError(kit::string::format("damaged zlib stream: %s", reason));
}

// Brings more of the packed bytes; false where the source has none.
bool tiny_izbuf::fetch() {
    const std::streamsize count = source ? source->sgetn(packed, chunk) : 0;
    inflater->next_in = reinterpret_cast<Bytef*>(packed);
    inflater->avail_in = static_cast<uInt>(count);
    return count > 0;
}

tiny_izbuf::int_type tiny_izbuf::underflow() {
    if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
    if (state == stage::failed) fail("it was found damaged before");
    setg(plain, plain, plain);
    inflater->next_out = reinterpret_cast<Bytef*>(plain);
    inflater->avail_out = chunk;
    while (state == stage::reading && inflater->avail_out == chunk) {
        if (inflater->avail_in == 0 && !fetch()) fail("it is cut short");
        const int result = inflate(inflater.get(), Z_NO_FLUSH);
        if (result == Z_STREAM_END) state = stage::ended;
        if (result == Z_OK || result == Z_STREAM_END) continue;
        // First give what stands before the damage; the next read meets it again.
        if (inflater->avail_out < chunk) break;
        if (result == Z_NEED_DICT) fail("it needs a dictionary");
        fail(inflater->msg ? inflater->msg : "unknown cause");
    }
    const auto count = chunk - inflater->avail_out;
    if (count == 0) return traits_type::eof();
    setg(plain, plain, plain + count);
    return traits_type::to_int_type(*gptr());
}
