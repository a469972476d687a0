#include "runner/ObjLines.h"

#include <algorithm>
#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "runner/ObjFile.h"

namespace kystrake {
namespace {

// The blank-separated words of a line.
std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    size_t at = 0;
    while (true) {
        at = line.find_first_not_of(" \t", at);
        if (at == std::string::npos) return words;
        const size_t end = line.find_first_of(" \t", at);
        words.push_back(line.substr(at, end == std::string::npos ? std::string::npos : end - at));
        at = end;
    }
}

class LineChecker {
public:
    explicit LineChecker(const std::string& path) : path_(path) {}

    void check(std::string line) {
        ++lineNumber_;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::vector<std::string> words = wordsOf(line);
        if (words.empty()) return;
        if (words[0] == "v") vertex(words);
        if (words[0] == "f") face(words);
    }

    // Absolute indices may name vertices that come later in the file; they are checked once the
    // whole file has been read.
    void finish() const {
        for (const auto& [line, index] : forwardReferences_)
            if (index > vertexCount_)
                fail(line, "face corner " + std::to_string(index) +
                               " names a vertex the file does not have (" + std::to_string(vertexCount_) +
                               " vertices)");
    }

private:
    [[noreturn]] void fail(long line, const std::string& problem) const {
        throw ObjError("\"" + path_ + "\" line " + std::to_string(line) + ": " + problem);
    }
    [[noreturn]] void fail(const std::string& problem) const { fail(lineNumber_, problem); }

    void vertex(const std::vector<std::string>& words) {
        if (words.size() < 4) fail("a vertex needs three coordinates \"v x y z\"");
        for (size_t i = 1; i < 4; ++i) {
            // Decimal notation only: tinyobjloader would read hexadecimal or other forms as zero.
            const bool decimal = words[i].find_first_not_of("0123456789+-.eE") == std::string::npos;
            char* end = nullptr;
            const double value = std::strtod(words[i].c_str(), &end);
            if (!decimal || *end != '\0' || end == words[i].c_str())
                fail("coordinate \"" + words[i] + "\" is not a number");
            // The scene keeps points as floats: a value past float range would become infinite there.
            if (!std::isfinite(value) || std::abs(value) > FLT_MAX)
                fail("coordinate \"" + words[i] + "\" is not a finite number within float range");
        }
        ++vertexCount_;
    }

    void face(const std::vector<std::string>& words) {
        if (words.size() < 4) fail("a face needs at least three corners");
        std::vector<long> vertices;
        for (size_t i = 1; i < words.size(); ++i) {
            const long vertex = cornerVertex(words[i]);
            if (std::find(vertices.begin(), vertices.end(), vertex) != vertices.end())
                fail("face corner \"" + words[i] + "\" repeats a vertex of the same face");
            vertices.push_back(vertex);
        }
    }

    // The 0-based vertex of a corner "v", "v/vt", "v//vn" or "v/vt/vn"; a positive index past the
    // vertices so far is kept as it is, to be checked at the end.
    long cornerVertex(const std::string& corner) {
        char* end = nullptr;
        errno = 0;
        const long index = std::strtol(corner.c_str(), &end, 10);
        if (end == corner.c_str() || (*end != '\0' && *end != '/') || errno == ERANGE)
            fail("face corner \"" + corner + "\" is not a vertex index");
        if (index == 0) fail("face corner \"" + corner + "\" is 0; vertex indices start at 1");
        if (index < 0) {
            if (-index > vertexCount_)
                fail("face corner \"" + corner + "\" reaches back past the first vertex (" +
                     std::to_string(vertexCount_) + " vertices so far)");
            return vertexCount_ + index;
        }
        if (index > vertexCount_) forwardReferences_.emplace_back(lineNumber_, index);
        return index - 1;
    }

    const std::string& path_;
    long lineNumber_ = 0;
    long vertexCount_ = 0;
    std::vector<std::pair<long, long>> forwardReferences_;  // line, index
};

}  // namespace

void checkObjLines(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw ObjError("cannot read \"" + path + "\": no such file");
    LineChecker checker(path);
    std::string line;
    while (std::getline(file, line)) checker.check(line);
    if (file.bad()) throw ObjError("cannot read \"" + path + "\"");
    checker.finish();
}

}  // namespace kystrake
