#include <mhost/Driver.h>

#include "commands/CommandResult.h"
#include "commands/MessageLog.h"
#include "commands/ScriptRunner.h"
#include "commands/UndoQueue.h"
#include "graph/ApiBridge.h"
#include "plugins/PluginLoader.h"

namespace mhost {
namespace driver {
namespace {

Message toMessage(const MessageLog::Entry& entry) {
    return {static_cast<Message::Kind>(entry.kind), entry.text};
}

// The nodes every new Maya scene has that the plug-in relies on.
void makeDefaultNodes() { scene().createNode(nodeTypes().find("shadingEngine"), "initialShadingGroup"); }

}  // namespace

void resetScene() {
    undoQueue().clear();
    scene().clear();
    resetCommands();
    makeDefaultNodes();
}

MStatus loadPlugin(const std::string& path, std::string* error) {
    std::string why;
    MStatus status = mhost::loadPlugin(path, why);
    if (error) *error = why;
    return status;
}

MStatus unloadPlugin(const std::string& name, std::string* error) {
    std::string why;
    MStatus status = mhost::unloadPlugin(name, why);
    if (error) *error = why;
    return status;
}

MStatus runCommand(const std::string& text, std::string* result) {
    CommandResult value;
    MStatus status = runScript(text, value, true);
    if (result) *result = value.asText();
    return status;
}

std::vector<std::string> runCommandForWords(const std::string& text, MStatus* status) {
    CommandResult value;
    MStatus ran = runScript(text, value, true);
    if (status) *status = ran;
    return value.asStrings();
}

MStatus undo() { return undoQueue().undo(); }
MStatus redo() { return undoQueue().redo(); }
std::vector<std::string> undoJournal() { return undoQueue().journal(); }

std::vector<Message> messages() {
    std::vector<Message> result;
    for (const auto& entry : messageLog().entries()) result.push_back(toMessage(entry));
    return result;
}

int addMessageListener(std::function<void(const Message&)> listener) {
    return messageLog().addListener([listener](const MessageLog::Entry& e) { listener(toMessage(e)); });
}

void removeMessageListener(int id) { messageLog().removeListener(id); }

void setMessageEcho(bool on) { messageLog().setEcho(on); }

}  // namespace driver
}  // namespace mhost
