// Argument lists, syntaxes and their parsers, plug-in commands run through scripts, MGlobal's
// command results and the option variables.

#include <gtest/gtest.h>
#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <algorithm>
#include <climits>
#include <sstream>

#include "commands/ArgumentParser.h"
#include "commands/CommandTable.h"
#include "commands/MessageLog.h"
#include "commands/PluginCommand.h"
#include "commands/ScriptRunner.h"
#include "commands/SyntaxData.h"
#include "commands/UndoQueue.h"

namespace {

MArgList argsOf(const std::string& line) {
    std::vector<mhost::ArgValue> values;
    std::string word;
    for (std::istringstream in(line); in >> word;) values.push_back(mhost::ArgValue::fromWord(word));
    return MArgList(values);
}

TEST(ArgumentList, ConvertsBetweenNumbersAndRejectsText) {
    const MArgList args = argsOf("7 2.9 on abc -flag -3");
    MStatus status;
    EXPECT_EQ(2, args.asInt(1, &status));
    EXPECT_TRUE(status);
    EXPECT_TRUE(args.asBool(2, &status));
    EXPECT_DOUBLE_EQ(7.0, args.asDouble(0));
    EXPECT_EQ(0, args.asInt(3, &status));
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_STREQ("abc", args.asString(3).asChar());
    args.asString(6, &status);
    EXPECT_EQ(MS::kInvalidParameter, status);
    int kept = 42;
    EXPECT_FALSE(args.get(3, kept));
    EXPECT_EQ(42, kept);
    EXPECT_EQ(4u, args.flagIndex("flag"));
    EXPECT_EQ(4u, args.flagIndex("-f", "-flag"));
    EXPECT_EQ(MArgList::kInvalidArgIndex, args.flagIndex("-3"));
}

TEST(ArgumentList, BuildsAndReadsCountedStringArrays) {
    MArgList args;
    args.addArg(2);
    args.addArg(MString("a"));
    args.addArg(MString("b"));
    args.addArg(true);
    args.addArg(0.25);
    unsigned int index = 0;
    MStringArray strings;
    ASSERT_TRUE(args.get(index, strings));
    EXPECT_EQ(3u, index);
    EXPECT_EQ(MString("b"), strings[1]);
    index = 1;
    EXPECT_FALSE(args.get(index, strings));
    EXPECT_EQ(1u, index);
    std::ostringstream text;
    text << args;
    EXPECT_EQ("2 a b true 0.25", text.str());
}

MSyntax contextSyntax() {
    MSyntax syntax;
    syntax.addFlag("-u", "-uspan", MSyntax::kUnsigned);
    syntax.addFlag("-fig", "-figure", MSyntax::kBoolean);
    syntax.addFlag("-rad", "-radius", MSyntax::kDouble);
    syntax.addFlag("-sv", "-stringValue", MSyntax::kString, MSyntax::kString);
    syntax.makeFlagMultiUse("-sv");
    syntax.enableQuery();
    syntax.enableEdit();
    syntax.setObjectType(MSyntax::kStringObjects, 0, 1);
    return syntax;
}

TEST(ArgumentParsing, ReadsFlagsByEitherNameAndConvertsTheirArguments) {
    MStatus status;
    MArgDatabase db(contextSyntax(), argsOf("-e -uspan 12 -fig 1 -rad 2.5 -sv a b -sv c d ctx1"), &status);
    ASSERT_TRUE(status);
    EXPECT_TRUE(db.isEdit());
    EXPECT_FALSE(db.isQuery());
    EXPECT_TRUE(db.isFlagSet("-u"));
    EXPECT_TRUE(db.isFlagSet("uspan"));
    unsigned int spans = 0;
    int figure = 0;
    double radius = 0;
    MString text;
    EXPECT_TRUE(db.getFlagArgument("-u", 0, spans));
    EXPECT_TRUE(db.getFlagArgument("-fig", 0, figure));
    EXPECT_TRUE(db.getFlagArgument("-radius", 0, radius));
    EXPECT_TRUE(db.getFlagArgument("-sv", 1, text));
    EXPECT_EQ(12u, spans);
    EXPECT_EQ(1, figure);
    EXPECT_DOUBLE_EQ(2.5, radius);
    EXPECT_EQ(MString("b"), text);
    EXPECT_EQ(2u, db.numberOfFlagUses("-sv"));
    MArgList second;
    ASSERT_TRUE(db.getFlagArgumentList("-sv", 1, second));
    EXPECT_EQ(MString("d"), second.asString(1));
    EXPECT_EQ(MS::kInvalidParameter, db.getFlagArgument("-sv", 2, text));
    MStringArray objects;
    db.getObjects(objects);
    ASSERT_EQ(1u, objects.length());
    EXPECT_EQ(MString("ctx1"), objects[0]);
    db.isFlagSet("-nope", &status);
    EXPECT_EQ(MS::kInvalidParameter, status);
}

TEST(ArgumentParsing, QueryFlagsTakeNoArguments) {
    MStatus status;
    MArgParser parser(contextSyntax(), argsOf("-q -u ctx1"), &status);
    ASSERT_TRUE(status);
    EXPECT_TRUE(parser.isQuery());
    EXPECT_TRUE(parser.isFlagSet("-u"));
    unsigned int spans = 7;
    EXPECT_EQ(MS::kInvalidParameter, parser.getFlagArgument("-u", 0, spans));
    EXPECT_EQ(7u, spans);
}

TEST(ArgumentParsing, RejectsLinesTheSyntaxDoesNotAccept) {
    mhost::messageLog().setEcho(false);
    for (const char* bad : {"-u -1", "-u", "-fig maybe", "-x", "-u 1 -u 2", "a b", "-q -e -k"}) {
        MStatus status;
        MArgParser parser(contextSyntax(), argsOf(bad), &status);
        EXPECT_EQ(MS::kInvalidParameter, status) << bad;
        EXPECT_FALSE(parser.isFlagSet("-u")) << bad;
    }
    MSyntax plain;
    MStatus status;
    MArgParser parser(plain, argsOf("-q"), &status);
    EXPECT_EQ("Invalid flag: -q", mhost::messageLog().entries().back().text);
    mhost::messageLog().setEcho(true);
}

TEST(ArgumentParsing, CommandArgumentsComeBeforeObjects) {
    MSyntax syntax;
    syntax.addArg(MSyntax::kDouble);
    syntax.addArg(MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 1);
    MStatus status;
    MArgDatabase db(syntax, argsOf("0.5 3 a b"), &status);
    ASSERT_TRUE(status);
    double x = 0;
    int n = 0;
    EXPECT_TRUE(db.getCommandArgument(0, x));
    EXPECT_TRUE(db.getCommandArgument(1, n));
    EXPECT_EQ(3, n);
    MStringArray objects;
    db.getObjects(objects);
    EXPECT_EQ(2u, objects.length());
    mhost::messageLog().setEcho(false);
    MArgDatabase(syntax, argsOf("0.5 3"), &status);
    EXPECT_EQ(MS::kInvalidParameter, status);
    MArgDatabase(syntax, argsOf("0.5 x a"), &status);
    EXPECT_EQ(MS::kInvalidParameter, status);
    mhost::messageLog().setEcho(true);
}

TEST(ArgumentParsing, FallsBackOnTheSelectionForMissingObjects) {
    mhost::setSelectionSource([] { return std::vector<std::string>{"pCube1", "pCube2"}; });
    MSyntax syntax;
    syntax.useSelectionAsDefault(true);
    syntax.setObjectType(MSyntax::kSelectionList, 1, 2);
    MStringArray objects;
    MArgDatabase(syntax, argsOf("")).getObjects(objects);
    EXPECT_EQ(2u, objects.length());
    MArgDatabase(syntax, argsOf("pSphere1")).getObjects(objects);
    ASSERT_EQ(1u, objects.length());
    EXPECT_EQ(MString("pSphere1"), objects[0]);
    mhost::setSelectionSource(nullptr);
}

TEST(CommandResults, ReadAcrossKindsAsScriptsDo) {
    mhost::CommandResult result;
    result.set(std::string("12.7abc"));
    EXPECT_EQ(std::vector<int>{12}, result.asInts());
    EXPECT_EQ(std::vector<double>{12.7}, result.asDoubles());
    result.set(1e300);
    EXPECT_EQ(std::vector<int>{INT_MAX}, result.asInts());
    result.set(3);
    result.append(4);
    EXPECT_EQ(mhost::CommandResult::Kind::kIntArray, result.kind());
    EXPECT_EQ("3 4", result.asText());
    result.append(0.5);
    EXPECT_EQ(std::vector<double>{0.5}, result.asDoubles());
    result.set(std::vector<std::string>{"", "b"});
    EXPECT_EQ(" b", result.asText());
    result.clear();
    EXPECT_TRUE(result.asStrings().empty());
}

TEST(SyntaxDeclaration, RejectsDuplicateNamesAndCopiesOwnedSyntaxes) {
    MSyntax syntax;
    EXPECT_TRUE(syntax.addFlag("-m", "-mesh", MSyntax::kString));
    EXPECT_EQ(MS::kFailure, syntax.addFlag("-m", "-other"));
    EXPECT_EQ(MS::kFailure, syntax.addFlag("-x", "mesh"));
    EXPECT_EQ(MS::kInvalidParameter, syntax.makeFlagMultiUse("-nope"));
    MSyntax copy = syntax;
    copy.addFlag("-o", "-outname", MSyntax::kString);
    EXPECT_EQ(1u, syntax.hostData()->flags.size());
    MSyntax view(syntax.hostData());
    MSyntax viewCopy = view;
    viewCopy.enableQuery();
    EXPECT_TRUE(syntax.canQuery());
}

// A plug-in command as the patch command is written: flags read by short then long name, a string
// result, and an undoable mode chosen by a flag.
std::vector<std::string> gCreated;

class PatchCmd : public MPxCommand {
public:
    static void* creator() { return new PatchCmd; }
    static MSyntax newSyntax() {
        MSyntax syntax;
        syntax.addFlag("-m", "-mesh", MSyntax::kString);
        syntax.addFlag("-o", "-outname", MSyntax::kString);
        syntax.addFlag("-u", "-undoable");
        return syntax;
    }
    MStatus doIt(const MArgList& args) override {
        MStatus status;
        MArgDatabase db(syntax(), args, &status);
        if (!status) return status;
        if (!db.isFlagSet("-m") && !db.isFlagSet("-mesh")) {
            displayError("No mesh given");
            return MS::kInvalidParameter;
        }
        db.getFlagArgument("-m", 0, fMesh);
        if (db.isFlagSet("-o")) db.getFlagArgument("-o", 0, fName);
        fUndoable = db.isFlagSet("-u");
        return redoIt();
    }
    MStatus redoIt() override {
        gCreated.push_back(created());
        setResult(fName);
        return MS::kSuccess;
    }
    MStatus undoIt() override {
        gCreated.erase(std::find(gCreated.rbegin(), gCreated.rend(), created()).base() - 1);
        return MS::kSuccess;
    }
    bool isUndoable() const override { return fUndoable; }

private:
    std::string created() const { return std::string(fName.asChar()) + "@" + fMesh.asChar(); }

    MString fMesh;
    MString fName = "kyPatch";
    bool fUndoable = false;
};

class ResultsCmd : public MPxCommand {
public:
    static void* creator() { return new ResultsCmd; }
    MStatus doIt(const MArgList& args) override {
        const MString kind = args.asString(0);
        if (kind == "ints") {
            setResult(MIntArray(2, 7));
            appendToResult(8);
        } else if (kind == "reals") {
            setResult(1.5);
            appendToResult(2.25);
        } else if (kind == "words") {
            appendToResult("a");
            appendToResult(MString("b"));
        } else if (kind == "flag") {
            setResult(true);
        }
        return MS::kSuccess;
    }
};

class PluginCommands : public testing::Test {
protected:
    void SetUp() override {
        mhost::resetCommands();
        mhost::messageLog().setEcho(false);
        gCreated.clear();
        auto& table = mhost::commandTable();
        table.add("patchTestCmd", mhost::pluginCommandFactory(PatchCmd::creator, PatchCmd::newSyntax),
                  "argsTest");
        table.add("results", mhost::pluginCommandFactory(ResultsCmd::creator, nullptr), "argsTest");
    }
    void TearDown() override {
        for (const std::string& name : mhost::commandTable().namesOwnedBy("argsTest"))
            mhost::commandTable().remove(name);
        mhost::messageLog().setEcho(true);
    }
};

TEST_F(PluginCommands, RunThroughScriptsWithTheirSyntaxAndResult) {
    MStatus status;
    EXPECT_EQ(MString("patch1"),
              MGlobal::executeCommandStringResult("patchTestCmd -m \"|mesh|meshShape\" -o \"patch1\";", false,
                                                  true, &status));
    EXPECT_TRUE(status);
    EXPECT_EQ(MString("kyPatch"), MGlobal::executeCommandStringResult("patchTestCmd -mesh m2"));
    EXPECT_EQ((std::vector<std::string>{"patch1@|mesh|meshShape", "kyPatch@m2"}), gCreated);
    EXPECT_FALSE(mhost::undoQueue().canUndo());
    EXPECT_EQ(MS::kInvalidParameter, MGlobal::executeCommand("patchTestCmd -m a -z"));
    EXPECT_EQ("Invalid flag: -z", mhost::messageLog().entries().back().text);
    EXPECT_EQ(MS::kInvalidParameter, MGlobal::executeCommand("patchTestCmd"));
    EXPECT_EQ("No mesh given", mhost::messageLog().entries().back().text);
    EXPECT_EQ(2u, gCreated.size());
}

TEST_F(PluginCommands, UndoableInstancesStayAliveOnTheQueue) {
    ASSERT_TRUE(
        MGlobal::executeCommand("patchTestCmd -u -m a -o p1; patchTestCmd -u -m b -o p2", false, true));
    ASSERT_TRUE(MGlobal::executeCommand("patchTestCmd -u -m c", false, false));
    EXPECT_EQ((std::vector<std::string>{"patchTestCmd -u -m a -o p1", "patchTestCmd -u -m b -o p2"}),
              mhost::undoQueue().journal());
    ASSERT_TRUE(MGlobal::executeCommand("undo"));
    EXPECT_EQ((std::vector<std::string>{"p1@a", "kyPatch@c"}), gCreated);
    ASSERT_TRUE(MGlobal::executeCommand("undo; undo; redo"));
    EXPECT_EQ((std::vector<std::string>{"kyPatch@c", "p1@a"}), gCreated);
}

TEST_F(PluginCommands, ExecuteCommandConvertsEachResultKind) {
    MIntArray ints;
    ASSERT_TRUE(MGlobal::executeCommand("results ints", ints));
    EXPECT_EQ(3u, ints.length());
    EXPECT_EQ(8, ints[2]);
    MDoubleArray reals;
    ASSERT_TRUE(MGlobal::executeCommand("results reals", reals));
    EXPECT_EQ(2u, reals.length());
    EXPECT_DOUBLE_EQ(2.25, reals[1]);
    MStringArray words;
    ASSERT_TRUE(MGlobal::executeCommand("results words", words));
    EXPECT_EQ(MString("b"), words[1]);
    EXPECT_EQ(MString("7 7 8"), MGlobal::executeCommandStringResult("results ints"));
    int flag = -1;
    ASSERT_TRUE(MGlobal::executeCommand("results flag", flag));
    EXPECT_EQ(1, flag);
    double first = 0;
    ASSERT_TRUE(MGlobal::executeCommand("results reals", first));
    EXPECT_DOUBLE_EQ(1.5, first);
    ASSERT_TRUE(MGlobal::executeCommand("results none", words));
    EXPECT_EQ(0u, words.length());
    MString text("kept");
    EXPECT_FALSE(MGlobal::executeCommand("unknownCommand", text));
    EXPECT_EQ(MString("kept"), text);
}

TEST_F(PluginCommands, DisplayEchoesTheCommandText) {
    ASSERT_TRUE(MGlobal::executeCommand("results ints", true, false));
    EXPECT_EQ(mhost::MessageLog::Kind::kOutput, mhost::messageLog().entries().back().kind);
    EXPECT_EQ("results ints\n", mhost::messageLog().entries().back().text);
}

TEST_F(PluginCommands, OptionVariablesConvertBetweenTypes) {
    bool exists = true;
    EXPECT_EQ(0, MGlobal::optionVarIntValue("ky_uspan", &exists));
    EXPECT_FALSE(exists);
    EXPECT_TRUE(MGlobal::setOptionVarValue("ky_uspan", 8));
    EXPECT_TRUE(MGlobal::setOptionVarValue("ky_strakeRadius", 2.75));
    EXPECT_TRUE(MGlobal::setOptionVarValue("kyStrake_info1", MString("Ready,Go")));
    EXPECT_FALSE(MGlobal::setOptionVarValue("", 1));
    EXPECT_EQ(8, MGlobal::optionVarIntValue("ky_uspan", &exists));
    EXPECT_TRUE(exists);
    EXPECT_EQ(2, MGlobal::optionVarIntValue("ky_strakeRadius"));
    EXPECT_EQ(MString("2.75"), MGlobal::optionVarStringValue("ky_strakeRadius"));
    EXPECT_EQ(MString("Ready,Go"), MGlobal::optionVarStringValue("kyStrake_info1"));
    MGlobal::removeOptionVar("ky_uspan");
    EXPECT_FALSE(MGlobal::optionVarExists("ky_uspan"));
}

TEST_F(PluginCommands, OptionVarCommandSetsQueriesAndRemoves) {
    ASSERT_TRUE(MGlobal::executeCommand("optionVar -iv ky_vspan 6 -fv ky_glue 1.5 -sv ky_name \"a b\""));
    EXPECT_EQ(6, MGlobal::optionVarIntValue("ky_vspan"));
    EXPECT_DOUBLE_EQ(1.5, MGlobal::optionVarDoubleValue("ky_glue"));
    EXPECT_EQ(MString("a b"), MGlobal::executeCommandStringResult("optionVar -q ky_name"));
    int value = -1;
    ASSERT_TRUE(MGlobal::executeCommand("optionVar -q missing", value));
    EXPECT_EQ(0, value);
    ASSERT_TRUE(MGlobal::executeCommand("optionVar -exists ky_vspan -rm ky_vspan", value));
    EXPECT_EQ(1, value);
    ASSERT_TRUE(MGlobal::executeCommand("optionVar -intValue ky_vspan 3 -rm ky_vspan -remove ky_glue"));
    EXPECT_FALSE(MGlobal::optionVarExists("ky_vspan"));
    EXPECT_FALSE(MGlobal::optionVarExists("ky_glue"));
    EXPECT_FALSE(MGlobal::executeCommand("optionVar -iv ky_vspan many"));
    EXPECT_FALSE(MGlobal::executeCommand("optionVar -q"));
    EXPECT_FALSE(mhost::undoQueue().canUndo());
}

}  // namespace
