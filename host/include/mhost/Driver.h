#pragma once
// The headless host's driver: what a program or a test uses to stand in for Maya's user — reset the
// scene, load plug-ins, run commands, undo and redo, and read what the host printed. Everything here
// runs on the caller's thread, which plays Maya's main thread.

#include <maya/MStatus.h>

#include <functional>
#include <string>
#include <vector>

namespace mhost {
namespace driver {

// Starts a new, empty scene as Maya's "file -new" does: removes every node, empties the undo queue,
// the option variables, the message log and the selection, and makes the default nodes again
// ("initialShadingGroup"). Loaded plug-ins stay loaded.
void resetScene();

// Loads the plug-in module at `path` through dlopen as Maya does. On failure `error` says why.
MStatus loadPlugin(const std::string& path, std::string* error = nullptr);
// Unloads a plug-in by its name (the module's file name without extension).
MStatus unloadPlugin(const std::string& name, std::string* error = nullptr);

// Runs script text with undo recording on, as typed in Maya's script editor. `result` receives the
// result as text (array results joined by blanks).
MStatus runCommand(const std::string& text, std::string* result = nullptr);
// Runs script text and returns its result as words.
std::vector<std::string> runCommandForWords(const std::string& text, MStatus* status = nullptr);

// Undoes or redoes one step of the undo queue; kFailure when there is none.
MStatus undo();
MStatus redo();
// Journal lines of the steps that can be undone, oldest first.
std::vector<std::string> undoJournal();

// One line the host printed: info, warning, error, or output of "print".
struct Message {
    enum class Kind { kInfo, kWarning, kError, kOutput };
    Kind kind;
    std::string text;
};
// Everything printed since the last reset, in order.
std::vector<Message> messages();
// Calls `listener` for every line printed from now on, until the returned id is removed.
int addMessageListener(std::function<void(const Message&)> listener);
void removeMessageListener(int id);
// Whether printed lines also go to the standard streams, as Maya's script editor shows them: info
// and output to stdout, warnings and errors to stderr. On by default.
void setMessageEcho(bool on);

}  // namespace driver
}  // namespace mhost
