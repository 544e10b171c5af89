#include "NewsroomKit/Library/ZipWriter.h"

#include <zlib.h>

#include <limits>
#include <new>
#include <stdexcept>

namespace kit {

namespace {

constexpr std::uint32_t kLocalSignature = 0x04034B50;
constexpr std::uint32_t kDirectorySignature = 0x02014B50;
constexpr std::uint32_t kEndSignature = 0x06054B50;
constexpr std::uint16_t kVersion = 20;  // deflate and folders
constexpr std::uint16_t kMadeOnUnix = 0x0300;
constexpr std::uint16_t kNamesAreUTF8 = 0x0800;
constexpr std::uint16_t kFirstDay = (1U << 5U) | 1U;   // 1 January 1980, midnight
constexpr std::uint32_t kPlainFile = 0100644U << 16U;  // rw-r--r--
constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;
constexpr std::uint64_t kMostBytes = 0xFFFF0000U;
constexpr std::uint32_t kMostFiles = 0xFFFF;

void append16(std::uint32_t number, std::string& out) {
    out += static_cast<char>(number & 0xFFU);
    out += static_cast<char>((number >> 8U) & 0xFFU);
}

void append32(std::uint64_t number, std::string& out) {
    append16(static_cast<std::uint32_t>(number & 0xFFFFU), out);
    append16(static_cast<std::uint32_t>((number >> 16U) & 0xFFFFU), out);
}

/// Without a wrapper. Never fails but for want of memory.
std::string deflated(std::string_view bytes) {
    z_stream stream{};
    constexpr int windowWithoutWrapper = -15;
    constexpr int memory = 8;
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, windowWithoutWrapper, memory,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
    std::string out(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    const auto outcome = deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    if (outcome != Z_STREAM_END) throw std::bad_alloc();
    return out;
}

}  // namespace

void ZipWriter::write(std::string_view bytes) {
    sink_(bytes);
    written_ += bytes.size();
}

void ZipWriter::add(std::string_view path, std::string_view bytes) {
    if (files_ >= kMostFiles || path.size() > std::numeric_limits<std::uint16_t>::max() ||
        written_ + bytes.size() + directory_.size() > kMostBytes)
        throw std::length_error("This is too much for one .zip file.");
    auto packed = deflated(bytes);
    const bool isStored = packed.size() >= bytes.size();
    const std::string_view body = isStored ? bytes : std::string_view(packed);
    // What the local header and the directory have in common.
    std::string common;
    append16(kNamesAreUTF8, common);
    append16(isStored ? kStored : kDeflated, common);
    append16(0, common);
    append16(kFirstDay, common);
    append32(crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()), common);
    append32(body.size(), common);
    append32(bytes.size(), common);
    append16(static_cast<std::uint32_t>(path.size()), common);
    append16(0, common);

    std::string local;
    append32(kLocalSignature, local);
    append16(kVersion, local);
    local += common;
    local += path;

    append32(kDirectorySignature, directory_);
    append16(kMadeOnUnix | kVersion, directory_);
    append16(kVersion, directory_);
    directory_ += common;
    append16(0, directory_);  // no comment
    append16(0, directory_);  // on the first disk
    append16(0, directory_);  // no internal attributes
    append32(kPlainFile, directory_);
    append32(written_, directory_);
    directory_ += path;

    ++files_;
    write(local);
    write(body);
}

void ZipWriter::finish() {
    const auto begin = written_;
    const auto size = directory_.size();
    write(directory_);
    std::string end;
    append32(kEndSignature, end);
    append32(0, end);  // all on the first disk
    append16(files_, end);
    append16(files_, end);
    append32(size, end);
    append32(begin, end);
    append16(0, end);  // no comment
    write(end);
}

}  // namespace kit
