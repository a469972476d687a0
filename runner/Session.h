#pragma once
// A gesture session: the source mesh, the view, and the steps the runner replays, read from a JSON
// document. Reading validates everything up front, so a malformed session fails before any step runs,
// with a message naming the step and the field.

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace kystrake {

using Pixel = std::array<int, 2>;
using Vec3 = std::array<double, 3>;

enum class MouseButton { kLeft, kMiddle };

struct Modifiers {
    bool shift = false;
    bool ctrl = false;
};

// A mesh vertex standing for the pixel where it shows when the step runs, moved by `offset` pixels,
// so that a session can click on or beside a vertex of a mesh the session itself has built. An empty
// mesh name means the retopo mesh.
struct VertexPlace {
    std::string mesh;
    int vertex = 0;
    Pixel offset{0, 0};
};
// Where a press or release happens: a pixel, or a vertex's pixel.
using Place = std::variant<Pixel, VertexPlace>;

// Mouse gestures in view pixels, origin at the bottom left as in Maya. A drag is a polyline whose
// points are sent as successive drag events.
struct Press {
    Place at;
    MouseButton button;
    Modifiers modifiers;
};
struct Drag {
    std::vector<Pixel> path;
    MouseButton button;
    Modifiers modifiers;
};
struct Release {
    Place at;
    MouseButton button;
    Modifiers modifiers;
};
struct PointerMove {
    Pixel at;
};
// ENTER, ESC and BACKSPACE, which reach the tool as complete, abort and delete actions.
struct Key {
    enum class Name { kEnter, kEscape, kBackspace } name;
};
// Script text run through the host's command language (context command edits, selection, ...).
struct Command {
    std::string text;
};
struct SetOptionVar {
    std::string name;
    std::variant<int, double, std::string> value;
};
struct Select {
    std::vector<std::string> names;
};
struct Undo {
    int times = 1;
};
struct Redo {
    int times = 1;
};
// Captures the viewport as a picture named after the step (or `name`).
struct Frame {
    std::string name;
};
// Saves the scene to a host scene file, or replaces the scene with one, as File > Save and File >
// Open do mid-session. A relative path is taken from the output folder.
struct SaveScene {
    std::string path;
};
struct LoadScene {
    std::string path;
};
struct CameraPlacement {
    Vec3 eye;
    Vec3 target;
    double fieldOfViewDegrees = 45.0;
};

using Step = std::variant<Press, Drag, Release, PointerMove, Key, Command, SetOptionVar, Select, Undo, Redo,
                          Frame, CameraPlacement, SaveScene, LoadScene>;

// The name of a step's action in session files: "press", "drag", ... "save", "load".
const char* actionName(const Step& step);

// Where the dense source mesh comes from: an OBJ file, or a built-in procedural mesh.
struct SourceMesh {
    std::string objPath;              // empty for a procedural mesh
    std::string procedural = "limb";  // "limb", "relief", "sphere", "torus" or "plane"
    int triangles = 200000;           // approximate density of a procedural mesh
};

struct Session {
    SourceMesh source;
    int viewWidth = 960;
    int viewHeight = 640;
    std::optional<CameraPlacement> camera;  // none: frame the source mesh
    std::vector<Step> steps;
};

// A session document that cannot be read; the message names the file, and the step and field at
// fault (or the line and column of a JSON syntax error).
class SessionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Parses a session from JSON text; throws SessionError. Every field is checked: an unknown field, a
// value of the wrong type, or a number out of its range (a pixel beyond the range of short, for
// instance) is refused here rather than left to fail when its step runs.
Session parseSession(const std::string& jsonText);
// Reads and parses a session file; throws SessionError (also for a file that cannot be read).
Session loadSession(const std::string& path);

}  // namespace kystrake
