#include "runner/fuzz/SessionWriter.h"

#include <nlohmann/json.hpp>

namespace kystrake {
namespace {

using nlohmann::json;

json pixel(const Pixel& p) { return json::array({p[0], p[1]}); }

json place(const Place& at) {
    if (const Pixel* p = std::get_if<Pixel>(&at)) return pixel(*p);
    const VertexPlace& vertex = std::get<VertexPlace>(at);
    json value = {{"vertex", vertex.vertex}, {"offset", pixel(vertex.offset)}};
    if (!vertex.mesh.empty()) value["mesh"] = vertex.mesh;
    return value;
}

// The button and modifiers beside a mouse step's action, left out where they are the defaults.
json mouse(const char* action, json value, MouseButton button, Modifiers modifiers) {
    json step = {{action, std::move(value)}};
    if (button == MouseButton::kMiddle) step["button"] = "middle";
    if (modifiers.shift) step["shift"] = true;
    if (modifiers.ctrl) step["ctrl"] = true;
    return step;
}

json camera(const CameraPlacement& c) {
    return {{"eye", c.eye}, {"target", c.target}, {"fov", c.fieldOfViewDegrees}};
}

struct StepToJson {
    json operator()(const Press& s) const { return mouse("press", place(s.at), s.button, s.modifiers); }
    json operator()(const Release& s) const { return mouse("release", place(s.at), s.button, s.modifiers); }
    json operator()(const Drag& s) const {
        json path = json::array();
        for (const Pixel& p : s.path) path.push_back(pixel(p));
        return mouse("drag", std::move(path), s.button, s.modifiers);
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
};

json source(const SourceMesh& mesh) {
    if (!mesh.objPath.empty()) return {{"obj", mesh.objPath}};
    return {{"procedural", mesh.procedural}, {"triangles", mesh.triangles}};
}

}  // namespace

std::string sessionToJson(const Session& session) {
    json head = {{"source", source(session.source)},
                 {"view", {{"width", session.viewWidth}, {"height", session.viewHeight}}}};
    if (session.camera) head["camera"] = camera(*session.camera);
    std::string text = head.dump();
    text.pop_back();  // the closing brace, which comes after the steps
    text += ",\n\"steps\": [";
    for (size_t i = 0; i < session.steps.size(); ++i)
        text += (i ? ",\n  " : "\n  ") + std::visit(StepToJson{}, session.steps[i]).dump();
    return text + "\n]}\n";
}

}  // namespace kystrake
