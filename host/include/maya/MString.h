#pragma once
// MString: Maya's string value. Numbers appended with += or + are formatted as host/README.md says.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <string>

class MStringArray;

class OPENMAYA_EXPORT MString {
public:
    MString();
    MString(const char* charString);
    MString(const char* charString, int charLength);
    MString(const MString& other);
    ~MString();
    MString& operator+=(const MString& other);
    MString& operator+=(const char* other);
    MString& operator+=(double other);
    MString& operator+=(int other);
    MString& operator+=(unsigned int other);
    MString& operator+=(float other);
    MString& operator=(const MString& other);
    MString& operator=(const char* other);
    MString& operator=(double value);
    bool operator==(const MString& other) const;
    bool operator==(const char* other) const;
    bool operator!=(const MString& other) const;
    bool operator!=(const char* other) const;
    MString operator+(const MString& other) const;
    MString operator+(const char* other) const;
    MString operator+(double value) const;
    MStatus set(const char* charString);
    MStatus set(const char* charString, int charLength);
    MStatus set(double value);
    MStatus set(double value, int precision);
    const char* asChar() const;
    const char* asChar(int& charLength) const;
    const char* asUTF8() const;
    unsigned int length() const;
    unsigned int numChars() const;
    void clear();
    // Index of the first (index) or last (rindex) occurrence of a character, -1 if absent.
    int index(char) const;
    int rindex(char) const;
    // Splits at every occurrence of the character; empty pieces are dropped, as in Maya.
    MStatus split(char, MStringArray&) const;
    // Characters start..end inclusive; an empty string for an empty or reversed range.
    MString substring(int start, int end) const;
    MString& toUpperCase();
    MString& toLowerCase();
    bool isShort() const;
    short asShort() const;
    bool isInt() const;
    int asInt() const;
    bool isUnsigned() const;
    unsigned int asUnsigned() const;
    bool isFloat() const;
    float asFloat() const;
    bool isDouble() const;
    double asDouble() const;
    MStatus substitute(const MString& src, const MString& target);
    MStatus substituteFirst(const MString& src, const MString& target);

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream&, const MString&);
    friend OPENMAYA_EXPORT MString operator+(const char*, const MString&);

private:
    std::string fString;
};

// Orders strings by their characters, so that MString can key a std::map.
OPENMAYA_EXPORT bool operator<(const MString& a, const MString& b);
