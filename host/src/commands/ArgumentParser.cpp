#include "commands/ArgumentParser.h"

#include <optional>

namespace mhost {
namespace {

SelectionSource& selectionSource() {
    static SelectionSource source;
    return source;
}

// The value converted to an argument of the declared type; nothing when it has no such reading.
std::optional<ArgValue> convert(MSyntax::MArgType type, const ArgValue& value) {
    bool flag = false;
    int integer = 0;
    double real = 0;
    switch (type) {
        case MSyntax::kBoolean:
            // A number given to a boolean flag keeps its value, so a flag declared boolean can still be
            // read back as an integer (a tool's mode number, say); it reads as true when non-zero.
            if (value.toInt(integer)) return ArgValue::fromInt(integer);
            if (value.toBool(flag)) return ArgValue::fromBool(flag);
            return std::nullopt;
        case MSyntax::kLong:
        case MSyntax::kUnsigned:
            if (value.toInt(integer) && (type == MSyntax::kLong || integer >= 0))
                return ArgValue::fromInt(integer);
            return std::nullopt;
        case MSyntax::kDouble:
        case MSyntax::kDistance:
        case MSyntax::kAngle:
        case MSyntax::kTime:
            if (value.toDouble(real)) return ArgValue::fromDouble(real);
            return std::nullopt;
        default:
            return ArgValue::fromString(value.text());
    }
}

class LineReader {
public:
    LineReader(const std::vector<ArgValue>& args, ParsedArgs& parsed) : fArgs(args), fParsed(parsed) {}

    bool read() {
        readMode();
        std::vector<ArgValue> positional;
        for (size_t at = 0; at < fArgs.size();) {
            if (!fArgs[at].isFlag()) {
                positional.push_back(fArgs[at++]);
            } else if (!readFlag(at)) {
                return false;
            }
        }
        return readCommandArgs(positional) && readObjects(positional);
    }

    std::string error;

private:
    bool isQueryFlag(const ArgValue& arg) const {
        return fParsed.syntax.query && arg.isFlag() && (arg.flagName() == "q" || arg.flagName() == "query");
    }
    bool isEditFlag(const ArgValue& arg) const {
        return fParsed.syntax.edit && arg.isFlag() && (arg.flagName() == "e" || arg.flagName() == "edit");
    }

    // Query mode must be known before any flag is read, since it decides whether flags take arguments.
    void readMode() {
        for (const ArgValue& arg : fArgs) {
            fParsed.query = fParsed.query || isQueryFlag(arg);
            fParsed.edit = fParsed.edit || isEditFlag(arg);
        }
    }

    bool fail(std::string message) {
        error = std::move(message);
        return false;
    }

    bool readFlag(size_t& at) {
        const ArgValue& word = fArgs[at];
        const auto position = static_cast<unsigned int>(at++);
        if (isQueryFlag(word) || isEditFlag(word)) return true;
        const FlagSpec* flag = fParsed.syntax.findFlag(word.flagName());
        if (!flag) return fail("Invalid flag: " + word.text());
        if (!flag->multiUse && !fParsed.usesOf(word.flagName()).empty())
            return fail("Flag used more than once: " + word.text());
        FlagUse use{static_cast<size_t>(flag - fParsed.syntax.flags.data()), {}, position};
        if (!readFlagValues(*flag, word, at, use.values)) return false;
        fParsed.uses.push_back(std::move(use));
        return true;
    }

    // The flag's arguments, converted to their declared types; none in query mode.
    bool readFlagValues(const FlagSpec& flag, const ArgValue& word, size_t& at,
                        std::vector<ArgValue>& values) {
        const size_t count = fParsed.query ? 0 : flag.argTypes.size();
        if (at + count > fArgs.size())
            return fail("Flag " + word.text() + " needs " + std::to_string(count) + " argument(s)");
        for (size_t i = 0; i < count; ++i, ++at) {
            std::optional<ArgValue> value = convert(flag.argTypes[i], fArgs[at]);
            if (!value) return fail("Invalid argument for flag " + word.text() + ": " + fArgs[at].text());
            values.push_back(*value);
        }
        return true;
    }

    bool readCommandArgs(std::vector<ArgValue>& positional) {
        const std::vector<MSyntax::MArgType>& types = fParsed.syntax.commandArgs;
        if (positional.size() < types.size()) return fail("Not enough objects or values.");
        for (size_t i = 0; i < types.size(); ++i) {
            std::optional<ArgValue> value = convert(types[i], positional[i]);
            if (!value) return fail("Invalid argument: " + positional[i].text());
            fParsed.commandArgs.push_back(*value);
        }
        positional.erase(positional.begin(), positional.begin() + types.size());
        return true;
    }

    bool readObjects(const std::vector<ArgValue>& rest) {
        const SyntaxData& syntax = fParsed.syntax;
        if (!syntax.takesObjects()) return rest.empty() || fail("Too many objects or values.");
        for (const ArgValue& object : rest) fParsed.objects.push_back(object.text());
        if (fParsed.objects.empty() && syntax.selectionAsDefault && selectionSource())
            fParsed.objects = selectionSource()();
        if (fParsed.objects.size() > syntax.maxObjects) return fail("Too many objects or values.");
        if (fParsed.objects.size() < syntax.minObjects) return fail("Not enough objects or values.");
        return true;
    }

    const std::vector<ArgValue>& fArgs;
    ParsedArgs& fParsed;
};

}  // namespace

std::vector<const FlagUse*> ParsedArgs::usesOf(const std::string& flag) const {
    std::vector<const FlagUse*> found;
    const FlagSpec* declared = syntax.findFlag(flag);
    if (!declared) return found;
    const size_t index = static_cast<size_t>(declared - syntax.flags.data());
    for (const FlagUse& use : uses)
        if (use.flag == index) found.push_back(&use);
    return found;
}

MStatus parseArguments(const SyntaxData& syntax, const std::vector<ArgValue>& args, ParsedArgs& parsed,
                       std::string& error) {
    parsed = ParsedArgs();
    parsed.syntax = syntax;
    LineReader reader(args, parsed);
    if (reader.read()) return MS::kSuccess;
    error = reader.error;
    parsed = ParsedArgs();  // a rejected line answers as if nothing had been given
    parsed.syntax = syntax;
    return MS::kInvalidParameter;
}

void setSelectionSource(SelectionSource source) { selectionSource() = std::move(source); }

}  // namespace mhost
