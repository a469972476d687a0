#include "commands/MessageLog.h"

#include <iostream>

namespace mhost {
namespace {

void echo(const MessageLog::Entry& entry) {
    switch (entry.kind) {
        case MessageLog::Kind::kInfo:
            std::cout << entry.text << std::endl;
            return;
        case MessageLog::Kind::kWarning:
            std::cerr << "// Warning: " << entry.text << std::endl;
            return;
        case MessageLog::Kind::kError:
            std::cerr << "// Error: " << entry.text << std::endl;
            return;
        case MessageLog::Kind::kOutput:
            std::cout << entry.text << std::flush;
            return;
    }
}

}  // namespace

void MessageLog::add(Kind kind, const std::string& text) {
    const Entry entry{kind, text};
    fEntries.push_back(entry);
    if (kind == Kind::kError) ++fErrorsLogged;
    if (fEcho) echo(entry);
    // A listener may log in turn or change the listeners: notify from copies so that this stays defined.
    const std::map<int, Listener> listeners = fListeners;
    for (const auto& [id, listener] : listeners) listener(entry);
}

int MessageLog::addListener(Listener listener) {
    fListeners.emplace(fNextListenerId, std::move(listener));
    return fNextListenerId++;
}

void MessageLog::removeListener(int id) { fListeners.erase(id); }

MessageLog& messageLog() {
    static MessageLog log;
    return log;
}

}  // namespace mhost
