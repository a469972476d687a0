#include <maya/MString.h>
#include <maya/MUuid.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <random>
#include <string>

namespace {

constexpr unsigned int kByteCount = 16;
constexpr unsigned int kTextLength = 36;

// Hyphens follow the 4th, 6th, 8th and 10th bytes of the text form 8-4-4-4-12.
bool hyphenFollows(unsigned int byteIndex) {
    return byteIndex == 3 || byteIndex == 5 || byteIndex == 7 || byteIndex == 9;
}

int hexValue(char c) {
    if (!std::isxdigit(static_cast<unsigned char>(c))) return -1;
    return std::isdigit(static_cast<unsigned char>(c))
               ? c - '0'
               : std::toupper(static_cast<unsigned char>(c)) - 'A' + 10;
}

// Reads the text form into bytes; false, with bytes unspecified, unless the text is exactly 8-4-4-4-12
// hexadecimal digits.
bool parseUuid(const std::string& text, unsigned char* bytes) {
    if (text.size() != kTextLength) return false;
    size_t pos = 0;
    for (unsigned int i = 0; i < kByteCount; ++i) {
        const int high = hexValue(text[pos]), low = hexValue(text[pos + 1]);
        if (high < 0 || low < 0) return false;
        bytes[i] = static_cast<unsigned char>(high * 16 + low);
        pos += 2;
        if (hyphenFollows(i) && text[pos++] != '-') return false;
    }
    return true;
}

// One generator per thread, seeded once from the system's entropy source.
std::mt19937_64& randomEngine() {
    thread_local std::mt19937_64 engine(std::random_device{}());
    return engine;
}

}  // namespace

MUuid::MUuid() { std::fill(fBytes, fBytes + kByteCount, 0); }
MUuid::MUuid(const MUuid& other) = default;
MUuid::MUuid(const unsigned char* uuid) : MUuid() {
    if (uuid) std::copy(uuid, uuid + kByteCount, fBytes);
}
MUuid::MUuid(const MString& value, MStatus* ReturnStatus) : MUuid() {
    const bool parsed = parseUuid(value.asChar(), fBytes);
    if (!parsed) std::fill(fBytes, fBytes + kByteCount, 0);
    if (ReturnStatus) *ReturnStatus = parsed ? MS::kSuccess : MS::kInvalidParameter;
}
MUuid::~MUuid() = default;
MUuid& MUuid::operator=(const MUuid& rhs) = default;

bool MUuid::operator==(const MUuid& rhs) const { return std::equal(fBytes, fBytes + kByteCount, rhs.fBytes); }
bool MUuid::operator!=(const MUuid& rhs) const { return !(*this == rhs); }

MStatus MUuid::get(unsigned char* uuid) const {
    if (!uuid) return MS::kFailure;
    std::copy(fBytes, fBytes + kByteCount, uuid);
    return MS::kSuccess;
}

MString MUuid::asString() const {
    std::string text;
    for (unsigned int i = 0; i < kByteCount; ++i) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", fBytes[i]);
        text += digits;
        if (hyphenFollows(i)) text += '-';
    }
    return MString(text.c_str());
}

MUuid::operator MString() const { return asString(); }
void MUuid::copy(const MUuid& rhs) { *this = rhs; }
bool MUuid::valid() const {
    return std::any_of(fBytes, fBytes + kByteCount, [](unsigned char byte) { return byte != 0; });
}

MStatus MUuid::generate() {
    for (unsigned int i = 0; i < kByteCount; i += 8) {
        const unsigned long long bits = randomEngine()();
        for (unsigned int k = 0; k < 8; ++k) fBytes[i + k] = static_cast<unsigned char>(bits >> (8 * k));
    }
    fBytes[6] = static_cast<unsigned char>(0x40 | (fBytes[6] & 0x0F));  // version 4: random
    fBytes[8] = static_cast<unsigned char>(0x80 | (fBytes[8] & 0x3F));  // variant 10x: RFC 4122
    return MS::kSuccess;
}
