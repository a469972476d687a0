#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <ostream>

namespace {

// Numbers appended to a string print with up to 15 significant digits and no trailing zeros, so
// integral values (counts, ids) appear without a decimal point and without an exponent below 1e15.
std::string formatNumber(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

// Parses the whole text as a number of the given kind; leading/trailing blanks are allowed.
template <class Parse>
bool parsesWhole(const std::string& text, Parse parse) {
    const char* begin = text.c_str();
    char* end = nullptr;
    parse(begin, &end);
    if (end == begin) return false;
    while (*end && std::isspace(static_cast<unsigned char>(*end))) ++end;
    return *end == '\0';
}

bool isIntegerText(const std::string& text) {
    return parsesWhole(text, [](const char* b, char** e) { return std::strtol(b, e, 10); });
}

bool isRealText(const std::string& text) {
    return parsesWhole(text, [](const char* b, char** e) { return std::strtod(b, e); });
}

}  // namespace

MString::MString() = default;
MString::MString(const char* charString) : fString(charString ? charString : "") {}
MString::MString(const char* charString, int charLength)
    : fString(charString ? std::string(charString, std::max(charLength, 0)) : std::string()) {}
MString::MString(const MString& other) = default;
MString::~MString() = default;

MString& MString::operator+=(const MString& other) {
    fString += other.fString;
    return *this;
}
MString& MString::operator+=(const char* other) {
    if (other) fString += other;
    return *this;
}
MString& MString::operator+=(double other) {
    fString += formatNumber(other);
    return *this;
}
MString& MString::operator+=(int other) {
    fString += std::to_string(other);
    return *this;
}
MString& MString::operator+=(unsigned int other) {
    fString += std::to_string(other);
    return *this;
}
MString& MString::operator+=(float other) {
    fString += formatNumber(other);
    return *this;
}
MString& MString::operator=(const MString& other) = default;
MString& MString::operator=(const char* other) {
    fString = other ? other : "";
    return *this;
}
MString& MString::operator=(double value) {
    fString = formatNumber(value);
    return *this;
}

bool MString::operator==(const MString& other) const { return fString == other.fString; }
bool MString::operator==(const char* other) const { return fString == (other ? other : ""); }
bool MString::operator!=(const MString& other) const { return !(*this == other); }
bool MString::operator!=(const char* other) const { return !(*this == other); }

MString MString::operator+(const MString& other) const {
    MString r(*this);
    r += other;
    return r;
}
MString MString::operator+(const char* other) const {
    MString r(*this);
    r += other;
    return r;
}
MString MString::operator+(double value) const {
    MString r(*this);
    r += value;
    return r;
}

MStatus MString::set(const char* charString) {
    *this = charString;
    return MS::kSuccess;
}
MStatus MString::set(const char* charString, int charLength) {
    *this = MString(charString, charLength);
    return MS::kSuccess;
}
MStatus MString::set(double value) {
    *this = value;
    return MS::kSuccess;
}
MStatus MString::set(double value, int precision) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", std::clamp(precision, 0, 30), value);
    fString = buffer;
    return MS::kSuccess;
}

const char* MString::asChar() const { return fString.c_str(); }
const char* MString::asChar(int& charLength) const {
    charLength = static_cast<int>(fString.size());
    return fString.c_str();
}
const char* MString::asUTF8() const { return fString.c_str(); }
unsigned int MString::length() const { return static_cast<unsigned int>(fString.size()); }
unsigned int MString::numChars() const { return length(); }
void MString::clear() { fString.clear(); }

int MString::index(char c) const {
    auto pos = fString.find(c);
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

int MString::rindex(char c) const {
    auto pos = fString.rfind(c);
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

MStatus MString::split(char delimiter, MStringArray& output) const {
    output.clear();
    std::string piece;
    for (char c : fString) {
        if (c == delimiter) {
            if (!piece.empty()) output.append(MString(piece.c_str()));
            piece.clear();
        } else {
            piece += c;
        }
    }
    if (!piece.empty()) output.append(MString(piece.c_str()));
    return MS::kSuccess;
}

MString MString::substring(int start, int end) const {
    const int size = static_cast<int>(fString.size());
    start = std::max(start, 0);
    end = std::min(end, size - 1);
    if (start > end) return MString();
    return MString(fString.substr(start, end - start + 1).c_str());
}

MString& MString::toUpperCase() {
    for (char& c : fString) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return *this;
}

MString& MString::toLowerCase() {
    for (char& c : fString) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return *this;
}

bool MString::isShort() const { return isInt() && asInt() >= -32768 && asInt() <= 32767; }
short MString::asShort() const { return static_cast<short>(asInt()); }
bool MString::isInt() const { return isIntegerText(fString); }
int MString::asInt() const { return static_cast<int>(std::strtol(fString.c_str(), nullptr, 10)); }
bool MString::isUnsigned() const { return isInt() && asInt() >= 0; }
unsigned int MString::asUnsigned() const {
    return static_cast<unsigned int>(std::strtoul(fString.c_str(), nullptr, 10));
}
bool MString::isFloat() const { return isRealText(fString); }
float MString::asFloat() const { return std::strtof(fString.c_str(), nullptr); }
bool MString::isDouble() const { return isRealText(fString); }
double MString::asDouble() const { return std::strtod(fString.c_str(), nullptr); }

MStatus MString::substitute(const MString& src, const MString& target) {
    if (src.fString.empty()) return MS::kInvalidParameter;
    std::string result;
    size_t from = 0;
    for (size_t at; (at = fString.find(src.fString, from)) != std::string::npos;
         from = at + src.fString.size())
        result += fString.substr(from, at - from) + target.fString;
    fString = result + fString.substr(from);
    return MS::kSuccess;
}

MStatus MString::substituteFirst(const MString& src, const MString& target) {
    if (src.fString.empty()) return MS::kInvalidParameter;
    auto at = fString.find(src.fString);
    if (at != std::string::npos) fString.replace(at, src.fString.size(), target.fString);
    return MS::kSuccess;
}

std::ostream& operator<<(std::ostream& os, const MString& s) { return os << s.fString; }
MString operator+(const char* left, const MString& right) { return MString(left) + right; }
bool operator<(const MString& a, const MString& b) {
    return std::string(a.asChar()) < std::string(b.asChar());
}
