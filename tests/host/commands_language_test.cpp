// The command language: reading script text, running sequences, substitution, conditions and errors.

#include <gtest/gtest.h>
#include <maya/MArgList.h>
#include <maya/MSyntax.h>

#include <stdexcept>

#include "commands/ArgValue.h"
#include "commands/CommandTable.h"
#include "commands/MessageLog.h"
#include "commands/ScriptRunner.h"
#include "commands/UndoQueue.h"

namespace {

using mhost::ArgValue;
using mhost::CommandResult;

// Every call of "rec" as the list of its argument texts, each prefixed with its kind (i, d, s, b).
std::vector<std::vector<std::string>> gCalls;

std::string describe(const ArgValue& value) {
    static const char kKinds[] = {'b', 'i', 'd', 's'};
    return std::string(1, kKinds[static_cast<int>(value.kind())]) + ":" + value.text();
}

class RecordCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        std::vector<std::string> call;
        for (const ArgValue& value : args.hostArgs()) call.push_back(describe(value));
        gCalls.push_back(call);
        result().set(static_cast<int>(call.size()));
        return MS::kSuccess;
    }
};

// "emit" returns its arguments' texts as a string array; "num" returns the number it is given.
class EmitCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        std::vector<std::string> words;
        for (const ArgValue& value : args.hostArgs()) words.push_back(value.text());
        result().set(words);
        return MS::kSuccess;
    }
};

class NumberCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        result().set(args.asDouble(0));
        return MS::kSuccess;
    }
};

class FailCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList&) override { return MS::kInvalidParameter; }
};

class ThrowCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList&) override { throw std::runtime_error("broken"); }
};

class FlaggedCommand : public mhost::CommandInstance {
public:
    FlaggedCommand() {
        fSyntax.addFlag("-am", "-alwaysMergeTwoVertices", MSyntax::kBoolean);
        fSyntax.addFlag("-d", "-distance", MSyntax::kDouble);
        fSyntax.setObjectType(MSyntax::kStringObjects);
    }
    MStatus doIt(const MArgList&) override { return MS::kSuccess; }
    const MSyntax* syntax() const override { return &fSyntax; }

private:
    MSyntax fSyntax;
};

template <class Command>
void addCommand(const std::string& name) {
    mhost::commandTable().add(
        name, [] { return std::make_unique<Command>(); }, "languageTest");
}

class ScriptLanguage : public testing::Test {
protected:
    void SetUp() override {
        mhost::resetCommands();
        mhost::messageLog().setEcho(false);
        gCalls.clear();
        addCommand<RecordCommand>("rec");
        addCommand<EmitCommand>("emit");
        addCommand<NumberCommand>("num");
        addCommand<FailCommand>("fail");
        addCommand<ThrowCommand>("throwing");
        addCommand<FlaggedCommand>("mergeTest");
    }
    void TearDown() override {
        for (const std::string& name : mhost::commandTable().namesOwnedBy("languageTest"))
            mhost::commandTable().remove(name);
        mhost::messageLog().setEcho(true);
    }

    MStatus run(const std::string& text) { return mhost::runScript(text, fResult, false); }

    std::vector<std::string> errors() const {
        std::vector<std::string> lines;
        for (const auto& entry : mhost::messageLog().entries())
            if (entry.kind == mhost::MessageLog::Kind::kError) lines.push_back(entry.text);
        return lines;
    }

    CommandResult fResult;
};

using Call = std::vector<std::string>;

TEST_F(ScriptLanguage, WordsBecomeTypedArguments) {
    ASSERT_TRUE(run("rec 3 -2.5 1e-05 -0.5 pCube1.vtx[3] |a|b -flag \"12\" ."));
    ASSERT_EQ(1u, gCalls.size());
    EXPECT_EQ(
        (Call{"i:3", "d:-2.5", "d:1e-05", "d:-0.5", "s:pCube1.vtx[3]", "s:|a|b", "s:-flag", "s:12", "s:."}),
        gCalls[0]);
    EXPECT_EQ(CommandResult::Kind::kInt, fResult.kind());
    EXPECT_EQ(std::vector<int>{9}, fResult.asInts());
}

TEST_F(ScriptLanguage, QuotedStringsKeepBlanksAndResolveEscapes) {
    ASSERT_TRUE(run(R"(rec "a b;c" "say \"hi\"" "back\\slash" "two\nlines" "C:\dir" "")"));
    EXPECT_EQ((Call{"s:a b;c", "s:say \"hi\"", "s:back\\slash", "s:two\nlines", "s:C:\\dir", "s:"}),
              gCalls.at(0));
}

TEST_F(ScriptLanguage, LoneDashJoinsTheFollowingWordIntoAFlag) {
    ASSERT_TRUE(run("rec -d 9999 - am 1 - insertWithEdgeFlow 0 - 5"));
    EXPECT_EQ((Call{"s:-d", "i:9999", "s:-am", "i:1", "s:-insertWithEdgeFlow", "i:0", "i:-5"}), gCalls.at(0));
    EXPECT_TRUE(run("mergeTest -d 9999 - am 1 \"|mesh.vtx[1]\""));
    EXPECT_FALSE(run("rec - \"x\""));
    EXPECT_TRUE(gCalls.size() == 1u);
}

TEST_F(ScriptLanguage, SequencesSkipEmptyStatementsAndKeepTheLastResult) {
    ASSERT_TRUE(run(";; rec a ;; rec b c;"));
    EXPECT_EQ(2u, gCalls.size());
    EXPECT_EQ(std::vector<int>{2}, fResult.asInts());
    ASSERT_TRUE(run("   "));
    EXPECT_EQ(CommandResult::Kind::kNone, fResult.kind());
}

TEST_F(ScriptLanguage, BackquotesSubstituteEachResultElementAsAnArgument) {
    ASSERT_TRUE(run("rec before `emit x \"y z\"` `num 2.5` after"));
    EXPECT_EQ((Call{"s:before", "s:x", "s:y z", "d:2.5", "s:after"}), gCalls.at(0));
    ASSERT_TRUE(run("rec `emit`"));
    EXPECT_TRUE(gCalls.at(1).empty());
}

TEST_F(ScriptLanguage, ConditionsPickTheirBranch) {
    ASSERT_TRUE(run("if (`num 1`) { rec yes; } else { rec no; }"));
    ASSERT_TRUE(run("if (`num 0`) { rec yes; } else { rec no }"));
    ASSERT_TRUE(run("if (0) { rec skipped; } rec next"));
    ASSERT_TRUE(
        run("if (`emit`) {rec emptyArray; } if (`emit \"\"`) {rec emptyString;} if (`emit a`) {rec text;}"));
    EXPECT_EQ((std::vector<Call>{{"s:yes"}, {"s:no"}, {"s:next"}, {"s:text"}}), gCalls);
}

TEST_F(ScriptLanguage, SyntaxErrorsRunNothing) {
    for (const char* bad : {"rec a; rec \"open", "rec a; rec `emit", "rec a; if (1) { rec b;",
                            "rec a; if `num 1` {}", "rec a; if (x) {}", "rec a; rec (b)", "rec a; 5",
                            "rec a; -x", "rec a; } rec b", "rec a; if (1) {} else rec b"}) {
        mhost::messageLog().clear();
        EXPECT_FALSE(run(bad)) << bad;
        ASSERT_EQ(1u, errors().size()) << bad;
        EXPECT_EQ(0u, errors()[0].find("Syntax error")) << errors()[0];
    }
    EXPECT_TRUE(gCalls.empty());
    EXPECT_EQ(CommandResult::Kind::kNone, fResult.kind());
}

TEST_F(ScriptLanguage, AFailingCommandStopsTheSequenceAfterEarlierOnesTookEffect) {
    EXPECT_EQ(MS::kInvalidParameter, run("rec a; fail; rec b"));
    EXPECT_EQ((std::vector<std::string>{"fail: (kInvalidParameter): Invalid parameter"}), errors());
    EXPECT_EQ(MS::kFailure, run("rec c; nothing 1 2; rec d"));
    EXPECT_EQ("Cannot find procedure \"nothing\".", errors().back());
    EXPECT_EQ(MS::kFailure, run("rec e; throwing; rec f"));
    EXPECT_EQ("throwing: broken", errors().back());
    EXPECT_FALSE(run("rec `fail` g"));
    EXPECT_EQ((std::vector<Call>{{"s:a"}, {"s:c"}, {"s:e"}}), gCalls);
    EXPECT_EQ(CommandResult::Kind::kNone, fResult.kind());
}

TEST_F(ScriptLanguage, FlagsAreCheckedAgainstTheCommandsSyntax) {
    EXPECT_TRUE(run("mergeTest -am on -distance 0.01 a b"));
    EXPECT_EQ(MS::kInvalidParameter, run("mergeTest -x 1 a"));
    EXPECT_EQ("Invalid flag: -x", errors().back());
    EXPECT_FALSE(run("mergeTest -d far a"));
    EXPECT_EQ("Invalid argument for flag -d: far", errors().back());
    EXPECT_FALSE(run("mergeTest a -d"));
    EXPECT_EQ(3u, errors().size());
}

TEST_F(ScriptLanguage, PrintWritesItsArgumentAsIs) {
    ASSERT_TRUE(run("print \"a\\n\"; print 2.50; print `emit x y`"));
    std::string output;
    for (const auto& entry : mhost::messageLog().entries())
        if (entry.kind == mhost::MessageLog::Kind::kOutput) output += entry.text;
    EXPECT_EQ("a\n2.50x\ny\n", output);
}

TEST(MessageLogEcho, WritesErrorsAndWarningsToStderrInMayasForm) {
    mhost::MessageLog log;
    std::vector<std::string> heard;
    const int id =
        log.addListener([&](const mhost::MessageLog::Entry& entry) { heard.push_back(entry.text); });
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    log.error("bad");
    log.warning("careful");
    log.info("note");
    log.removeListener(id);
    log.info("unheard");
    EXPECT_EQ("// Error: bad\n// Warning: careful\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ("note\nunheard\n", testing::internal::GetCapturedStdout());
    EXPECT_EQ((std::vector<std::string>{"bad", "careful", "note"}), heard);
    EXPECT_EQ(1u, log.errorsLogged());
}

}  // namespace
