// setAttr and getAttr.

#include "graph/ApiBridge.h"
#include "graph/DataObject.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

// Reads a value word: a number, or one of Maya's boolean words.
bool parseValueWord(const std::string& word, double& value) {
    if (word == "true" || word == "on" || word == "yes")
        value = 1;
    else if (word == "false" || word == "off" || word == "no")
        value = 0;
    else {
        char* end = nullptr;
        value = std::strtod(word.c_str(), &end);
        return !word.empty() && *end == '\0';
    }
    return true;
}

class SetAttrCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        std::vector<std::string> words;
        std::string typeName;
        for (unsigned int i = 0; i < args.length(); ++i) {
            std::string word = args.asString(i).asChar();
            if ((word == "-type" || word == "-typ") && i + 1 < args.length())
                typeName = args.asString(++i).asChar();
            else
                words.push_back(word);
        }
        if (words.size() < 2) return fail("setAttr: expects a plug and a value");
        MPlug plug;
        MStatus status = resolvePlug(words[0], plug);
        if (!status) return status;
        plug_ = Scene::storageOf(plug.hostPlug());
        before_ = plug_.node->storedValue(plug_.key);
        words.erase(words.begin());
        status = typeName == "string" ? plug.setString(MString(words[0].c_str())) : setNumbers(plug, words);
        if (!status) return status;
        after_ = plug_.node->storedValue(plug_.key);
        return MS::kSuccess;
    }

    bool isUndoable() const override { return true; }
    MStatus undoIt() override {
        scene().setValue(plug_, before_);
        return MS::kSuccess;
    }
    MStatus redoIt() override {
        scene().setValue(plug_, after_);
        return MS::kSuccess;
    }

private:
    MStatus setNumbers(MPlug& plug, const std::vector<std::string>& words) {
        const Attribute& attribute = *plug.hostPlug().key.attribute;
        const int expected =
            attribute.kind == AttributeKind::kNumeric ? std::max(1, attribute.componentCount()) : 0;
        if (expected == 0)
            return fail(std::string("setAttr: ") + plug.name().asChar() + " does not hold numbers");
        if (static_cast<int>(words.size()) != expected)
            return fail("setAttr: " + std::string(plug.name().asChar()) + " expects " +
                        std::to_string(expected) + " value(s)");
        double values[4] = {0, 0, 0, 0};
        for (int i = 0; i < expected; ++i)
            if (!parseValueWord(words[i], values[i])) return fail("setAttr: bad value \"" + words[i] + "\"");
        MStatus status;
        if (expected == 1) {
            status = plug.setDouble(values[0]);
        } else {
            auto numeric = std::make_shared<NumericData>(attribute.numericType);
            std::copy(values, values + 4, numeric->values.begin());
            status = plug.setMObject(wrapData(numeric));
        }
        if (!status) return fail(std::string("setAttr: ") + plug.name().asChar() + " cannot be set", status);
        return status;
    }

    PlugRef plug_;
    PlugValue before_, after_;
};

class GetAttrCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 1) return fail("getAttr: expects one plug");
        MPlug plug;
        MStatus status = resolvePlug(args.asString(0).asChar(), plug);
        if (!status) return status;
        const Attribute& attribute = *plug.hostPlug().key.attribute;
        PlugValue value = scene().evaluate(plug.hostPlug());
        if (attribute.kind != AttributeKind::kNumeric) {
            if (!setDataResult(dataOf(value.data)))
                return fail(std::string("getAttr: ") + plug.name().asChar() + " holds no printable value");
        } else if (attribute.componentCount() > 1) {
            result().set(std::vector<double>(value.numbers.begin(),
                                             value.numbers.begin() + attribute.componentCount()));
        } else {
            result().set(value.numbers[0]);
        }
        return MS::kSuccess;
    }

private:
    // A string, an int array or a double array as the command's result; false for other data.
    bool setDataResult(const DataPtr& data) {
        if (auto text = std::dynamic_pointer_cast<StringData>(data)) {
            result().set(std::string(text->value.asChar()));
        } else if (auto ints = std::dynamic_pointer_cast<IntArrayData>(data)) {
            std::vector<int> values;
            for (unsigned int i = 0; i < ints->value.length(); ++i) values.push_back(ints->value[i]);
            result().set(std::move(values));
        } else if (auto doubles = std::dynamic_pointer_cast<DoubleArrayData>(data)) {
            std::vector<double> values;
            for (unsigned int i = 0; i < doubles->value.length(); ++i) values.push_back(doubles->value[i]);
            result().set(std::move(values));
        } else {
            return false;
        }
        return true;
    }
};

}  // namespace

void registerAttributeCommands(CommandTable& table) {
    table.add("setAttr", [] { return std::make_unique<SetAttrCommand>(); });
    table.add("getAttr", [] { return std::make_unique<GetAttrCommand>(); });
}

}  // namespace mhost
