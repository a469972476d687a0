#include <gtest/gtest.h>
#include <maya/MColor.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>
#include <maya/MUuid.h>

#include <cctype>
#include <set>
#include <string>

namespace {

// True for the 8-4-4-4-12 upper-case hexadecimal text of a version 4, RFC 4122 variant uuid.
bool isVersionFourText(const std::string& text) {
    const std::string shape = "hhhhhhhh-hhhh-4hhh-vhhh-hhhhhhhhhhhh";
    if (text.size() != shape.size()) return false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool upperHex = std::isxdigit(static_cast<unsigned char>(c)) && !std::islower(c);
        const bool fits = shape[i] == 'h'   ? upperHex
                          : shape[i] == 'v' ? std::string("89AB").find(c) != std::string::npos
                                            : c == shape[i];
        if (!fits) return false;
    }
    return true;
}

}  // namespace

TEST(MColorArithmetic, AlphaOfTheLeftColourPassesThrough) {
    EXPECT_EQ(MColor(0, 0, 0, 1), MColor());
    EXPECT_EQ(MColor::kOpaqueBlack, MColor());
    EXPECT_EQ(MColor(0.5f, 1, 1.5f, 0.5f), MColor(0.25f, 0.5f, 0.75f, 0.5f) * 2.0f);
    EXPECT_EQ(MColor(0.5f, 1, 1.5f, 0.5f), 2.0f * MColor(0.25f, 0.5f, 0.75f, 0.5f));
    EXPECT_EQ(MColor(0.5f, 0.25f, 0, 0.8f), MColor(1, 0.5f, 0.25f, 0.8f) * MColor(0.5f, 0.5f, 0, 0.1f));
    EXPECT_EQ(MColor(1, 1, 1, 0.8f), MColor(0.5f, 0.25f, 0, 0.8f) + MColor(0.5f, 0.75f, 1, 0.1f));
    EXPECT_EQ(MColor(0, -0.5f, -1, 0.8f), MColor(0.5f, 0.25f, 0, 0.8f) - MColor(0.5f, 0.75f, 1, 0.1f));
    MColor c(0.2f, 0.4f, 0.6f);
    c *= 0.5f;
    EXPECT_EQ(MColor(0.1f, 0.2f, 0.3f, 1), c);
    EXPECT_NE(MColor(0, 0, 0, 1), MColor(0, 0, 0, 0));
}

TEST(MColorComponents, IndexAndArrayForms) {
    const float rgb[3] = {0.1f, 0.2f, 0.3f};
    MColor c(rgb);
    EXPECT_EQ(1.0f, c[3]);
    EXPECT_EQ(0.1f, c[9]);
    c[3] = 0.5f;
    EXPECT_EQ(0.5f, c.a);
    float out[3] = {};
    EXPECT_TRUE(c.get(out));
    EXPECT_EQ(0.3f, out[2]);
    EXPECT_FALSE(c.get(nullptr));
}

TEST(MTypeIdForms, PrefixFillsTheUpperBits) {
    EXPECT_EQ(0x12345678u, MTypeId(0x123456, 0x78).id());
    EXPECT_EQ(0x12345678u, MTypeId(0xFF123456, 0x178).id());
    EXPECT_EQ(MTypeId(0x12345678), MTypeId(0x123456, 0x78));
    EXPECT_NE(MTypeId(0x80000), MTypeId(0x80001));
    EXPECT_EQ(0u, MTypeId().id());
    MStatus status(MS::kFailure);
    EXPECT_EQ(0x80000u, MTypeId(0x80000).id(&status));
    EXPECT_EQ(MS::kSuccess, status);
}

TEST(MUuidGenerate, GivesDistinctVersionFourUuids) {
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i) {
        MUuid uuid;
        EXPECT_EQ(MS::kSuccess, uuid.generate());
        EXPECT_TRUE(uuid.valid());
        const std::string text = uuid.asString().asChar();
        EXPECT_TRUE(isVersionFourText(text)) << text;
        seen.insert(text);
    }
    EXPECT_EQ(1000u, seen.size());
}

TEST(MUuidText, ParsesEitherCaseAndRejectsMalformedText) {
    MStatus status;
    const MUuid parsed(MString("1b4e28ba-2fa1-41d2-883f-0016d3cca427"), &status);
    EXPECT_EQ(MS::kSuccess, status);
    EXPECT_STREQ("1B4E28BA-2FA1-41D2-883F-0016D3CCA427", parsed.asString().asChar());
    EXPECT_EQ(parsed, MUuid(parsed.asString()));
    EXPECT_EQ(MString("1B4E28BA-2FA1-41D2-883F-0016D3CCA427"), MString(parsed));
    for (const char* bad : {"", "1B4E28BA2FA141D2883F0016D3CCA427", "1B4E28BA-2FA1-41D2-883F-0016D3CCA42",
                            "1B4E28BA-2FA1-41D2-883F-0016D3CCA4270", "1B4E28BA-2FA1-41D2-883F+0016D3CCA427",
                            "1B4E28BA-2FA1-41D2-883G-0016D3CCA427"}) {
        const MUuid rejected(MString(bad), &status);
        EXPECT_EQ(MS::kInvalidParameter, status) << bad;
        EXPECT_FALSE(rejected.valid()) << bad;
    }
}

TEST(MUuidBytes, NullUntilSetAndBytesRoundTrip) {
    const MUuid null;
    EXPECT_FALSE(null.valid());
    EXPECT_STREQ("00000000-0000-0000-0000-000000000000", null.asString().asChar());
    unsigned char bytes[16];
    for (unsigned char i = 0; i < 16; ++i) bytes[i] = static_cast<unsigned char>(i * 17);
    const MUuid fromBytes(bytes);
    EXPECT_STREQ("00112233-4455-6677-8899-AABBCCDDEEFF", fromBytes.asString().asChar());
    unsigned char out[16] = {};
    EXPECT_EQ(MS::kSuccess, fromBytes.get(out));
    EXPECT_EQ(0xFF, out[15]);
    EXPECT_EQ(MS::kFailure, fromBytes.get(nullptr));
    MUuid copy;
    copy.copy(fromBytes);
    EXPECT_EQ(fromBytes, copy);
    EXPECT_NE(null, copy);
}
