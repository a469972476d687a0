#include "runner/SessionWriter.h"

#include <fstream>
#include <nlohmann/json.hpp>

namespace kystrake {
namespace {

using nlohmann::json;

json pixel(const Pixel& p) { return json::array({p[0], p[1]}); }

json place(const Place& at) {
    if (const Pixel* p = std::get_if<Pixel>(&at)) return pixel(*p);
    const VertexPlace& vertex = std::get<VertexPlace>(at);
    json value{{"vertex", vertex.vertex}, {"offset", pixel(vertex.offset)}};
    if (!vertex.mesh.empty()) value["mesh"] = vertex.mesh;
    return value;
}

json camera(const CameraPlacement& c) {
    return {{"eye", json::array({c.eye[0], c.eye[1], c.eye[2]})},
            {"target", json::array({c.target[0], c.target[1], c.target[2]})},
            {"fov", c.fieldOfViewDegrees}};
}

// Button and modifiers are written only when they differ from the reader's defaults.
void addGestureFields(json& step, MouseButton button, Modifiers modifiers) {
    if (button == MouseButton::kMiddle) step["button"] = "middle";
    if (modifiers.shift) step["shift"] = true;
    if (modifiers.ctrl) step["ctrl"] = true;
}

struct StepJson {
    json operator()(const Press& s) const { return gesture("press", place(s.at), s.button, s.modifiers); }
    json operator()(const Release& s) const { return gesture("release", place(s.at), s.button, s.modifiers); }
    json operator()(const Drag& s) const {
        json path = json::array();
        for (const Pixel& p : s.path) path.push_back(pixel(p));
        return gesture("drag", path, s.button, s.modifiers);
    }
    json operator()(const PointerMove& s) const { return {{"move", pixel(s.at)}}; }
    json operator()(const Key& s) const {
        static const char* const names[] = {"enter", "esc", "backspace"};
        return {{"key", names[static_cast<int>(s.name)]}};
    }
    json operator()(const Command& s) const { return {{"command", s.text}}; }
    json operator()(const SetOptionVar& s) const {
        json value;
        std::visit([&](const auto& v) { value = v; }, s.value);
        return {{"optionVar", {{s.name, value}}}};
    }
    json operator()(const Select& s) const { return {{"select", s.names}}; }
    json operator()(const Undo& s) const { return {{"undo", s.times}}; }
    json operator()(const Redo& s) const { return {{"redo", s.times}}; }
    json operator()(const Frame& s) const { return {{"frame", s.name}}; }
    json operator()(const CameraPlacement& s) const { return {{"camera", camera(s)}}; }
    json operator()(const SaveScene& s) const { return {{"save", s.path}}; }
    json operator()(const LoadScene& s) const { return {{"load", s.path}}; }

    static json gesture(const char* action, json value, MouseButton button, Modifiers modifiers) {
        json step{{action, std::move(value)}};
        addGestureFields(step, button, modifiers);
        return step;
    }
};

json source(const SourceMesh& mesh) {
    if (!mesh.objPath.empty()) return {{"obj", mesh.objPath}};
    return {{"procedural", mesh.procedural}, {"triangles", mesh.triangles}};
}

}  // namespace

std::string sessionJson(const Session& session) {
    json head{{"source", source(session.source)},
              {"view", {{"width", session.viewWidth}, {"height", session.viewHeight}}}};
    if (session.camera) head["camera"] = camera(*session.camera);
    // The steps go one a line, so that a recorded session reads and diffs as a list of gestures.
    std::string text = head.dump();
    text.pop_back();
    text += ", \"steps\": [";
    for (size_t i = 0; i < session.steps.size(); ++i)
        text += (i ? ",\n    " : "\n    ") + std::visit(StepJson{}, session.steps[i]).dump();
    return text + "]}\n";
}

void saveSession(const Session& session, const std::string& path) {
    std::ofstream file(path);
    file << sessionJson(session);
    if (!file) throw SessionError("session: cannot write \"" + path + "\"");
}

}  // namespace kystrake
