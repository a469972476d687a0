#include "commands/ArgValue.h"

#include <cctype>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace mhost {
namespace {

size_t skipDigits(const std::string& text, size_t at) {
    while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) ++at;
    return at;
}

// Matches [+-]? (digits [. digits?] | . digits) ([eE] [+-]? digits)? over the whole text.
bool isDecimalNumber(const std::string& text, bool& integral) {
    size_t at = (!text.empty() && (text[0] == '+' || text[0] == '-')) ? 1 : 0;
    const size_t intEnd = skipDigits(text, at);
    size_t fracDigits = 0;
    size_t end = intEnd;
    integral = true;
    if (end < text.size() && text[end] == '.') {
        integral = false;
        const size_t fracEnd = skipDigits(text, end + 1);
        fracDigits = fracEnd - end - 1;
        end = fracEnd;
    }
    if (intEnd == at && fracDigits == 0) return false;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        integral = false;
        size_t expAt = end + 1;
        if (expAt < text.size() && (text[expAt] == '+' || text[expAt] == '-')) ++expAt;
        end = skipDigits(text, expAt);
        if (end == expAt) return false;
    }
    return end == text.size();
}

bool booleanWord(const std::string& text, bool& out) {
    const bool isTrue = text == "true" || text == "on" || text == "yes";
    if (!isTrue && text != "false" && text != "off" && text != "no") return false;
    out = isTrue;
    return true;
}

}  // namespace

std::string formatReal(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

ArgValue::ArgValue(Kind kind, double number, std::string text)
    : fKind(kind), fNumber(number), fText(std::move(text)) {}

ArgValue ArgValue::fromBool(bool value) {
    return ArgValue(Kind::kBool, value ? 1 : 0, value ? "true" : "false");
}
ArgValue ArgValue::fromInt(int value) { return ArgValue(Kind::kInt, value, std::to_string(value)); }
ArgValue ArgValue::fromDouble(double value) { return ArgValue(Kind::kDouble, value, formatReal(value)); }
ArgValue ArgValue::fromString(std::string text) { return ArgValue(Kind::kString, 0, std::move(text)); }

ArgValue ArgValue::fromWord(const std::string& word) {
    if (std::optional<ArgValue> number = fromNumberText(word)) return *number;
    return fromString(word);
}

std::optional<ArgValue> ArgValue::fromNumberText(const std::string& text) {
    bool integral = false;
    if (!isDecimalNumber(text, integral)) return std::nullopt;
    const double number = std::strtod(text.c_str(), nullptr);
    const bool fitsInt = integral && number >= INT_MIN && number <= INT_MAX;
    return ArgValue(fitsInt ? Kind::kInt : Kind::kDouble, number, text);
}

bool ArgValue::toNumber(double& out) const {
    if (fKind != Kind::kString) {
        out = fNumber;
        return true;
    }
    bool word = false;
    if (booleanWord(fText, word)) {
        out = word ? 1.0 : 0.0;
        return true;
    }
    std::optional<ArgValue> number = fromNumberText(fText);
    return number && number->toNumber(out);
}

bool ArgValue::toBool(bool& out) const {
    double number = 0;
    if (!toNumber(number)) return false;
    out = number != 0;
    return true;
}

bool ArgValue::toInt(int& out) const {
    double number = 0;
    if (!toNumber(number) || !std::isfinite(number)) return false;
    const double truncated = std::trunc(number);
    if (truncated < INT_MIN || truncated > INT_MAX) return false;
    out = static_cast<int>(truncated);
    return true;
}

bool ArgValue::toDouble(double& out) const { return toNumber(out); }

bool ArgValue::isFlag() const {
    return fKind == Kind::kString && fText.size() > 1 && fText[0] == '-' && !fromNumberText(fText);
}

}  // namespace mhost
