#include "runner/Session.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

namespace kystrake {
namespace {

using nlohmann::json;

// In the order of the Step variant's alternatives.
const char* const kActions[] = {"press",  "drag", "release", "move",  "key",    "command", "optionVar",
                                "select", "undo", "redo",    "frame", "camera", "save",    "load"};
static_assert(std::size(kActions) == std::variant_size_v<Step>);

// Pixels reach the host as shorts, as Maya's view coordinates are.
constexpr double kPixelLimit = SHRT_MAX;
// Camera positions beyond this many units from the origin leave nothing but rounding error to see.
constexpr double kCoordinateLimit = 1e9;

// Names the place of a problem: "step 3 (press)" or a top-level field.
class Where {
public:
    explicit Where(std::string place) : place_(std::move(place)) {}
    [[noreturn]] void fail(const std::string& field, const std::string& problem) const {
        throw SessionError(place_ + ": field \"" + field + "\" " + problem);
    }

private:
    std::string place_;
};

// Whether a JSON integer fits an int (a huge one would wrap round in get<int>).
bool fitsInt(const json& value) {
    if (value.is_number_unsigned()) return value.get<std::uint64_t>() <= static_cast<std::uint64_t>(INT_MAX);
    const std::int64_t number = value.get<std::int64_t>();
    return number >= INT_MIN && number <= INT_MAX;
}

int wholeNumber(const json& value, const Where& where, const std::string& field) {
    if (!value.is_number_integer()) where.fail(field, "must be a whole number");
    if (!fitsInt(value)) where.fail(field, "is too large");
    return value.get<int>();
}

bool withinLimit(const json& value, double limit) {
    return value.is_number() && std::isfinite(value.get<double>()) && std::abs(value.get<double>()) <= limit;
}

Pixel pixel(const json& value, const Where& where, const std::string& field) {
    if (!value.is_array() || value.size() != 2 || !value[0].is_number() || !value[1].is_number())
        where.fail(field, "must be a pixel [x, y]");
    if (!withinLimit(value[0], kPixelLimit) || !withinLimit(value[1], kPixelLimit))
        where.fail(field, "must be a pixel [x, y] with x and y between -32767 and 32767");
    return {static_cast<int>(value[0].get<double>()), static_cast<int>(value[1].get<double>())};
}

Vec3 vec3(const json& value, const Where& where, const std::string& field) {
    if (!value.is_array() || value.size() != 3) where.fail(field, "must be a point [x, y, z]");
    for (const auto& v : value)
        if (!v.is_number()) where.fail(field, "must be a point [x, y, z] of numbers");
    for (const auto& v : value)
        if (!withinLimit(v, kCoordinateLimit))
            where.fail(field, "must be a point [x, y, z] with coordinates between -1e9 and 1e9");
    return {value[0].get<double>(), value[1].get<double>(), value[2].get<double>()};
}

// Refuses any field of `object` not among `known`: a misspelt field would otherwise be ignored and
// the session run with a default the author did not mean.
void onlyKnownFields(const json& object, std::initializer_list<const char*> known, const Where& where,
                     const std::string& prefix = "") {
    for (const auto& entry : object.items())
        if (std::none_of(known.begin(), known.end(), [&](const char* name) { return entry.key() == name; }))
            where.fail(prefix + entry.key(), "is not a known field");
}

std::string text(const json& value, const Where& where, const std::string& field) {
    if (!value.is_string()) where.fail(field, "must be a string");
    return value.get<std::string>();
}

// A pixel [x, y], or {"vertex": id} with an optional "mesh" name and "offset" [dx, dy].
Place place(const json& value, const Where& where, const std::string& field) {
    if (!value.is_object()) return pixel(value, where, field);
    if (!value.contains("vertex")) where.fail(field, "must be a pixel [x, y] or {\"vertex\": id}");
    onlyKnownFields(value, {"vertex", "mesh", "offset"}, where, field + ".");
    VertexPlace vertex;
    vertex.vertex = wholeNumber(value["vertex"], where, field + ".vertex");
    if (vertex.vertex < 0) where.fail(field + ".vertex", "must not be negative");
    if (value.contains("mesh")) vertex.mesh = text(value["mesh"], where, field + ".mesh");
    if (value.contains("offset")) vertex.offset = pixel(value["offset"], where, field + ".offset");
    return vertex;
}

bool flag(const json& step, const char* field, const Where& where) {
    if (!step.contains(field)) return false;
    if (!step[field].is_boolean()) where.fail(field, "must be true or false");
    return step[field].get<bool>();
}

MouseButton button(const json& step, const Where& where) {
    if (!step.contains("button")) return MouseButton::kLeft;
    const std::string name = text(step["button"], where, "button");
    if (name == "left") return MouseButton::kLeft;
    if (name == "middle") return MouseButton::kMiddle;
    where.fail("button", "must be \"left\" or \"middle\"");
}

Modifiers modifiers(const json& step, const Where& where) {
    return {flag(step, "shift", where), flag(step, "ctrl", where)};
}

CameraPlacement camera(const json& value, const Where& where, const std::string& field) {
    if (!value.is_object()) where.fail(field, "must be an object with \"eye\" and \"target\"");
    if (!value.contains("eye") || !value.contains("target"))
        where.fail(field, "needs \"eye\" and \"target\"");
    onlyKnownFields(value, {"eye", "target", "fov"}, where, field + ".");
    CameraPlacement placement{vec3(value["eye"], where, field + ".eye"),
                              vec3(value["target"], where, field + ".target")};
    if (value.contains("fov")) {
        if (!value["fov"].is_number() || value["fov"].get<double>() <= 1 || value["fov"].get<double>() >= 179)
            where.fail(field + ".fov", "must be an angle in degrees between 1 and 179");
        placement.fieldOfViewDegrees = value["fov"].get<double>();
    }
    return placement;
}

Step key(const json& value, const Where& where) {
    const std::string name = text(value, where, "key");
    if (name == "enter") return Key{Key::Name::kEnter};
    if (name == "esc" || name == "escape") return Key{Key::Name::kEscape};
    if (name == "backspace") return Key{Key::Name::kBackspace};
    where.fail("key", "must be \"enter\", \"esc\" or \"backspace\"");
}

Step optionVar(const json& value, const Where& where) {
    if (!value.is_object() || value.size() != 1)
        where.fail("optionVar", "must be one {\"name\": value} pair");
    const auto entry = value.begin();
    const std::string name = entry.key();
    const json& v = entry.value();
    if (v.is_number_integer() && !fitsInt(v)) where.fail("optionVar", "value is too large for an int");
    if (v.is_number_integer()) return SetOptionVar{name, v.get<int>()};
    if (v.is_number()) return SetOptionVar{name, v.get<double>()};
    if (v.is_string()) return SetOptionVar{name, v.get<std::string>()};
    if (v.is_boolean()) return SetOptionVar{name, v.get<bool>() ? 1 : 0};
    where.fail("optionVar", "value must be a number, a boolean or a string");
}

Step select(const json& value, const Where& where) {
    Select step;
    if (value.is_string())
        step.names.push_back(value.get<std::string>());
    else if (value.is_array())
        for (const auto& name : value) step.names.push_back(text(name, where, "select"));
    else
        where.fail("select", "must be a name or a list of names");
    return step;
}

Step drag(const json& step, const Where& where) {
    const json& path = step["drag"];
    if (!path.is_array() || path.empty())
        where.fail("drag", "must be a non-empty list of pixels [[x, y], ...]");
    Drag drag{{}, button(step, where), modifiers(step, where)};
    for (const auto& p : path) drag.path.push_back(pixel(p, where, "drag"));
    return drag;
}

int repeatCount(const json& value, const Where& where, const std::string& field) {
    const int times = wholeNumber(value, where, field);
    if (times < 1) where.fail(field, "must be at least 1");
    return times;
}

std::string filePath(const json& value, const Where& where, const std::string& field) {
    const std::string name = text(value, where, field);
    if (name.empty()) where.fail(field, "must be a file path");
    return name;
}

// A frame's name becomes part of its picture's file name in the output folder, so it may not lead out
// of that folder.
std::string frameName(const json& value, const Where& where) {
    const std::string name = text(value, where, "frame");
    if (name.find_first_of("/\\") != std::string::npos)
        where.fail("frame", "must be a name without '/' or '\\'");
    return name;
}

// The fields a step may have besides its action: the button and modifier keys of mouse gestures.
void checkStepFields(const json& step, const std::string& action, const Where& where) {
    if (action == "press" || action == "release" || action == "drag")
        onlyKnownFields(step, {action.c_str(), "button", "shift", "ctrl"}, where);
    else
        onlyKnownFields(step, {action.c_str()}, where);
}

std::string actionOf(const json& step, const std::string& place) {
    if (!step.is_object()) throw SessionError(place + ": must be an object such as {\"press\": [x, y]}");
    std::string found;
    for (const char* action : kActions) {
        if (!step.contains(action)) continue;
        if (!found.empty()) throw SessionError(place + ": has both \"" + found + "\" and \"" + action + "\"");
        found = action;
    }
    if (found.empty()) {
        std::string expected;
        for (const char* action : kActions) expected += std::string(expected.empty() ? "" : ", ") + action;
        throw SessionError(place + ": names no action; expected one of " + expected);
    }
    return found;
}

Step parseStep(const json& step, size_t index) {
    const std::string stepName = "step " + std::to_string(index + 1);
    const std::string action = actionOf(step, stepName);
    const Where where(stepName + " (" + action + ")");
    checkStepFields(step, action, where);
    const json& value = step[action];
    if (action == "press")
        return Press{place(value, where, action), button(step, where), modifiers(step, where)};
    if (action == "drag") return drag(step, where);
    if (action == "release")
        return Release{place(value, where, action), button(step, where), modifiers(step, where)};
    if (action == "move") return PointerMove{pixel(value, where, action)};
    if (action == "key") return key(value, where);
    if (action == "command") return Command{text(value, where, action)};
    if (action == "optionVar") return optionVar(value, where);
    if (action == "select") return select(value, where);
    if (action == "undo") return Undo{repeatCount(value, where, action)};
    if (action == "redo") return Redo{repeatCount(value, where, action)};
    if (action == "frame") return Frame{frameName(value, where)};
    if (action == "save") return SaveScene{filePath(value, where, action)};
    if (action == "load") return LoadScene{filePath(value, where, action)};
    return camera(value, where, action);
}

SourceMesh source(const json& value) {
    const Where where("session");
    SourceMesh mesh;
    if (!value.is_object()) where.fail("source", "must be an object with \"obj\" or \"procedural\"");
    onlyKnownFields(value, {"obj", "procedural", "triangles"}, where, "source.");
    if (value.contains("obj")) mesh.objPath = text(value["obj"], where, "source.obj");
    if (value.contains("procedural")) {
        mesh.procedural = text(value["procedural"], where, "source.procedural");
        const char* const kinds[] = {"limb", "relief", "sphere", "torus", "plane"};
        if (std::find(std::begin(kinds), std::end(kinds), mesh.procedural) == std::end(kinds))
            where.fail("source.procedural",
                       "must be \"limb\", \"relief\", \"sphere\", \"torus\" or \"plane\"");
    }
    if (value.contains("triangles")) {
        mesh.triangles = wholeNumber(value["triangles"], where, "source.triangles");
        if (mesh.triangles < 8 || mesh.triangles > 20000000)
            where.fail("source.triangles", "must be between 8 and 20000000");
    }
    return mesh;
}

}  // namespace

Session parseSession(const std::string& jsonText) {
    json document;
    try {
        document = json::parse(jsonText);
    } catch (const json::parse_error& error) {
        throw SessionError(std::string("session: not valid JSON: ") + error.what());
    }
    const Where where("session");
    if (!document.is_object()) throw SessionError("session: must be a JSON object with \"steps\"");
    onlyKnownFields(document, {"source", "view", "camera", "steps"}, where);
    Session session;
    if (document.contains("source")) session.source = source(document["source"]);
    if (document.contains("view")) {
        const json& view = document["view"];
        if (!view.is_object()) where.fail("view", "must be {\"width\": w, \"height\": h}");
        onlyKnownFields(view, {"width", "height"}, where, "view.");
        if (view.contains("width")) session.viewWidth = wholeNumber(view["width"], where, "view.width");
        if (view.contains("height")) session.viewHeight = wholeNumber(view["height"], where, "view.height");
        if (session.viewWidth < 16 || session.viewHeight < 16 || session.viewWidth > 8192 ||
            session.viewHeight > 8192)
            where.fail("view", "must be between 16 and 8192 pixels on each side");
    }
    if (document.contains("camera")) session.camera = camera(document["camera"], where, "camera");
    if (!document.contains("steps") || !document["steps"].is_array())
        where.fail("steps", "must be a list of steps");
    const json& steps = document["steps"];
    for (size_t i = 0; i < steps.size(); ++i) session.steps.push_back(parseStep(steps[i], i));
    return session;
}

Session loadSession(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw SessionError("session: cannot read \"" + path + "\"");
    std::stringstream text;
    text << file.rdbuf();
    try {
        return parseSession(text.str());
    } catch (const SessionError& error) {
        throw SessionError("\"" + path + "\" " + error.what());
    }
}

const char* actionName(const Step& step) { return kActions[step.index()]; }

}  // namespace kystrake
