#include <gtest/gtest.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

TEST(MStatusCodes, ConvertsToBoolAndComparesWithCodes) {
    MStatus ok;
    EXPECT_TRUE(ok);
    EXPECT_FALSE(ok.error());
    MStatus bad(MS::kInvalidParameter);
    EXPECT_FALSE(bad);
    EXPECT_TRUE(bad.error());
    EXPECT_EQ(bad, MS::kInvalidParameter);
    EXPECT_TRUE(MS::kInvalidParameter == bad);
    EXPECT_EQ(3, static_cast<int>(bad.statusCode()));
    EXPECT_EQ(5, static_cast<int>(MS::kUnknownParameter));
    EXPECT_STREQ("(kInvalidParameter): Invalid parameter", bad.errorString().asChar());
    bad.clear();
    EXPECT_TRUE(bad);
}

TEST(MStatusCodes, PerrorWritesPrefixAndDescription) {
    testing::internal::CaptureStderr();
    MStatus(MS::kFailure).perror("");
    MStatus(MS::kFailure).perror("step");
    EXPECT_EQ("(kFailure): Unexpected Internal Failure\nstep: (kFailure): Unexpected Internal Failure\n",
              testing::internal::GetCapturedStderr());
}

TEST(MStringNumbers, AppendsIntegersWithoutDecimalsAndRealsShortest) {
    MString s("(");
    s += 1000000;
    EXPECT_STREQ("(1000000", s.asChar());
    EXPECT_STREQ("n=500001 polys", (MString("n=") + 500001 + " polys").asChar());
    EXPECT_STREQ("x0.1", (MString("x") + 0.1).asChar());
    EXPECT_STREQ("-2.5", (MString() + -2.5f).asChar());
    EXPECT_STREQ("a3", ("a" + MString("3")).asChar());
}

TEST(MStringText, SplitDropsEmptyPiecesAndSubstringClamps) {
    MStringArray parts;
    MString("a,,b,c,").split(',', parts);
    ASSERT_EQ(3u, parts.length());
    EXPECT_EQ(MString("b"), parts[1]);
    MString("").split(',', parts);
    EXPECT_EQ(0u, parts.length());
    EXPECT_STREQ("bcd", MString("abcde").substring(1, 3).asChar());
    EXPECT_STREQ("cde", MString("abcde").substring(2, 99).asChar());
    EXPECT_STREQ("", MString("abcde").substring(3, 1).asChar());
}

TEST(MStringText, NumberParsingIsStrict) {
    EXPECT_TRUE(MString("42").isInt());
    EXPECT_FALSE(MString("4x2").isInt());
    EXPECT_FALSE(MString("").isDouble());
    EXPECT_TRUE(MString("-1.5e3").isDouble());
    EXPECT_DOUBLE_EQ(-1500.0, MString("-1.5e3").asDouble());
    MString t("a.b.c");
    t.substitute(".", "::");
    EXPECT_STREQ("a::b::c", t.asChar());
}

TEST(MObjectHandles, NullObjectHasNoType) {
    EXPECT_TRUE(MObject::kNullObj.isNull());
    EXPECT_EQ(MFn::kInvalid, MObject().apiType());
    EXPECT_FALSE(MObject().hasFn(MFn::kBase));
    EXPECT_EQ(MObject(), MObject::kNullObj);
}
