#include "commands/CommandResult.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

#include "commands/ArgValue.h"

namespace mhost {
namespace {

CommandResult* gCurrentResult = nullptr;

// Reals read as ints by truncation; values beyond the int range saturate and NaN reads as 0, so that
// no conversion is undefined.
int truncateToInt(double value) {
    if (std::isnan(value)) return 0;
    return static_cast<int>(std::clamp(std::trunc(value), double(INT_MIN), double(INT_MAX)));
}

int textToInt(const std::string& text) { return truncateToInt(std::strtod(text.c_str(), nullptr)); }
double textToDouble(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

template <class To, class From, class Convert>
std::vector<To> convertAll(const std::vector<From>& values, Convert convert) {
    std::vector<To> out;
    out.reserve(values.size());
    for (const From& value : values) out.push_back(convert(value));
    return out;
}

}  // namespace

bool CommandResult::isArray() const {
    return fKind == Kind::kIntArray || fKind == Kind::kDoubleArray || fKind == Kind::kStringArray;
}

void CommandResult::clear() { *this = CommandResult(); }

CommandResult::Element CommandResult::element() const {
    switch (fKind) {
        case Kind::kInt:
        case Kind::kIntArray:
            return Element::kInt;
        case Kind::kDouble:
        case Kind::kDoubleArray:
            return Element::kDouble;
        case Kind::kString:
        case Kind::kStringArray:
            return Element::kString;
        case Kind::kNone:
            break;
    }
    return Element::kNone;
}

void CommandResult::setKind(Element element, bool array) {
    switch (element) {
        case Element::kInt:
            fKind = array ? Kind::kIntArray : Kind::kInt;
            return;
        case Element::kDouble:
            fKind = array ? Kind::kDoubleArray : Kind::kDouble;
            return;
        case Element::kString:
            fKind = array ? Kind::kStringArray : Kind::kString;
            return;
        case Element::kNone:
            fKind = Kind::kNone;
            return;
    }
}

void CommandResult::set(int value) {
    set(std::vector<int>{value});
    setKind(Element::kInt, false);
}

void CommandResult::set(double value) {
    set(std::vector<double>{value});
    setKind(Element::kDouble, false);
}

void CommandResult::set(const std::string& value) {
    set(std::vector<std::string>{value});
    setKind(Element::kString, false);
}

void CommandResult::set(std::vector<int> values) {
    clear();
    fInts = std::move(values);
    setKind(Element::kInt, true);
}

void CommandResult::set(std::vector<double> values) {
    clear();
    fDoubles = std::move(values);
    setKind(Element::kDouble, true);
}

void CommandResult::set(std::vector<std::string> values) {
    clear();
    fStrings = std::move(values);
    setKind(Element::kString, true);
}

void CommandResult::prepareAppend(Element appended) {
    if (element() != appended) clear();
    setKind(appended, true);
}

void CommandResult::append(int value) {
    prepareAppend(Element::kInt);
    fInts.push_back(value);
}

void CommandResult::append(double value) {
    prepareAppend(Element::kDouble);
    fDoubles.push_back(value);
}

void CommandResult::append(const std::string& value) {
    prepareAppend(Element::kString);
    fStrings.push_back(value);
}

std::vector<int> CommandResult::asInts() const {
    switch (element()) {
        case Element::kInt:
            return fInts;
        case Element::kDouble:
            return convertAll<int>(fDoubles, truncateToInt);
        case Element::kString:
            return convertAll<int>(fStrings, textToInt);
        case Element::kNone:
            break;
    }
    return {};
}

std::vector<double> CommandResult::asDoubles() const {
    switch (element()) {
        case Element::kInt:
            return convertAll<double>(fInts, [](int v) { return static_cast<double>(v); });
        case Element::kDouble:
            return fDoubles;
        case Element::kString:
            return convertAll<double>(fStrings, textToDouble);
        case Element::kNone:
            break;
    }
    return {};
}

std::vector<std::string> CommandResult::asStrings() const {
    switch (element()) {
        case Element::kInt:
            return convertAll<std::string>(fInts, [](int v) { return std::to_string(v); });
        case Element::kDouble:
            return convertAll<std::string>(fDoubles, formatReal);
        case Element::kString:
            return fStrings;
        case Element::kNone:
            break;
    }
    return {};
}

std::string CommandResult::asText() const {
    const std::vector<std::string> words = asStrings();
    std::string text;
    for (size_t i = 0; i < words.size(); ++i) text += (i ? " " : "") + words[i];
    return text;
}

CommandResult& currentResult() {
    static CommandResult scratch;
    return gCurrentResult ? *gCurrentResult : scratch;
}

ResultTarget::ResultTarget(CommandResult& target) : fPrevious(gCurrentResult) { gCurrentResult = &target; }
ResultTarget::~ResultTarget() { gCurrentResult = fPrevious; }

}  // namespace mhost
