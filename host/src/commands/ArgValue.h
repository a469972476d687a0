#pragma once
// One argument of a command line: a boolean, an integer, a real or a string, with the text it was
// written as. Conversions follow the script language: numbers convert into each other (reals to
// integers by truncation), strings convert to numbers only when their whole text is a number or one
// of the boolean words true/false, on/off, yes/no.

#include <optional>
#include <string>

namespace mhost {

class ArgValue {
public:
    enum class Kind { kBool, kInt, kDouble, kString };

    static ArgValue fromBool(bool value);
    static ArgValue fromInt(int value);
    static ArgValue fromDouble(double value);
    static ArgValue fromString(std::string text);
    // An unquoted word of a script: an integer or a real when it reads as one, otherwise a string.
    static ArgValue fromWord(const std::string& word);
    // Reads text that is entirely a decimal number (sign, digits, point, exponent); words such as
    // "inf" or "0x1" are not numbers. Integers that fit an int become kInt, other numbers kDouble.
    static std::optional<ArgValue> fromNumberText(const std::string& text);

    Kind kind() const { return fKind; }
    // The text as written in the script, or the shortest text of a value built from a number.
    const std::string& text() const { return fText; }

    // Each returns false, leaving `out` unchanged, when the value has no such reading.
    bool toBool(bool& out) const;
    bool toInt(int& out) const;
    bool toDouble(double& out) const;

    // A flag is a string that starts with '-', has a name after it and is not a number.
    bool isFlag() const;
    // The flag's name without its dash; only meaningful when isFlag().
    std::string flagName() const { return fText.substr(1); }

private:
    ArgValue(Kind kind, double number, std::string text);
    bool toNumber(double& out) const;

    Kind fKind;
    double fNumber;
    std::string fText;
};

// The text a real prints as in scripts and results: shortest form, up to 15 significant digits.
std::string formatReal(double value);

}  // namespace mhost
