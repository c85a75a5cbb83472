// SPDX-License-Identifier: MIT
// A tool of the build: packs a file into one zlib stream.
#include <zlib.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

std::string read(const char* path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error(std::string("cannot read ") + path);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string pack(const std::string& plain) {
    std::string packed(compressBound(plain.size()), '\0');
    uLongf size = packed.size();
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                  reinterpret_cast<const Bytef*>(plain.data()), plain.size(),
                  Z_BEST_COMPRESSION) != Z_OK)
        throw std::runtime_error("cannot compress");
    packed.resize(size);
    return packed;
}

void write(const char* path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary);
    out << bytes;
    out.close();
    if (!out) throw std::runtime_error(std::string("cannot write ") + path);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fprintf(stderr, "usage: deflate_file INPUT OUTPUT\n");
        return 2;
    }
    try {
        write(argv[2], pack(read(argv[1])));
    } catch (const std::exception& failure) {
        fprintf(stderr, "deflate_file: %s\n", failure.what());
        return 1;
    }
    return 0;
}
