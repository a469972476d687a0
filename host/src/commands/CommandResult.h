#pragma once
// The value a command leaves behind: nothing, one value, or an array of ints, reals or strings.
// Readers convert between kinds as script assignments do: ints print as decimal text, reals as their
// shortest text, reals read as ints by truncation, strings read as numbers by their leading number
// (0 when there is none). A single value reads as a one-element array, no result as an empty one.

#include <string>
#include <vector>

namespace mhost {

class CommandResult {
public:
    enum class Kind { kNone, kInt, kDouble, kString, kIntArray, kDoubleArray, kStringArray };

    Kind kind() const { return fKind; }
    bool isArray() const;
    void clear();

    void set(int value);
    void set(double value);
    void set(const std::string& value);
    void set(std::vector<int> values);
    void set(std::vector<double> values);
    void set(std::vector<std::string> values);

    // Appending to no result or to a result of the same element type turns it into an array and
    // extends it; appending a different element type starts a new one-element array.
    void append(int value);
    void append(double value);
    void append(const std::string& value);

    std::vector<int> asInts() const;
    std::vector<double> asDoubles() const;
    std::vector<std::string> asStrings() const;
    // The result as one text for substitution into script text: array elements joined by a blank.
    std::string asText() const;

private:
    enum class Element { kNone, kInt, kDouble, kString };
    Element element() const;
    void setKind(Element element, bool array);
    void prepareAppend(Element element);

    Kind fKind = Kind::kNone;
    std::vector<int> fInts;
    std::vector<double> fDoubles;
    std::vector<std::string> fStrings;
};

// Where the static result setters of command classes write: the result of the command that runs now.
// Nested runs (a command running script text) stack; outside any command a scratch result is used.
CommandResult& currentResult();

// Makes `target` the current result for the lifetime of the scope.
class ResultTarget {
public:
    explicit ResultTarget(CommandResult& target);
    ~ResultTarget();
    ResultTarget(const ResultTarget&) = delete;
    ResultTarget& operator=(const ResultTarget&) = delete;

private:
    CommandResult* fPrevious;
};

}  // namespace mhost
