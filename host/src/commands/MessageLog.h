#pragma once
// Everything the host tells the user, in order: info, warning and error lines (from displayInfo,
// displayWarning, displayError and failing commands) and raw output (print, echoed commands).
// Listeners see each entry as it is added; echo writes errors and warnings to stderr as
// "// Error: text" / "// Warning: text", info lines and raw output to stdout.

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace mhost {

class MessageLog {
public:
    enum class Kind { kInfo, kWarning, kError, kOutput };
    struct Entry {
        Kind kind;
        std::string text;
    };
    using Listener = std::function<void(const Entry&)>;

    void info(const std::string& text) { add(Kind::kInfo, text); }
    void warning(const std::string& text) { add(Kind::kWarning, text); }
    void error(const std::string& text) { add(Kind::kError, text); }
    // Text written as is, without a line end of its own.
    void output(const std::string& text) { add(Kind::kOutput, text); }
    void add(Kind kind, const std::string& text);

    const std::vector<Entry>& entries() const { return fEntries; }
    // Number of error lines logged since the process started; clear() does not reset it, so callers
    // can tell whether a step logged an error of its own.
    size_t errorsLogged() const { return fErrorsLogged; }
    // Forgets the entries; listeners stay.
    void clear() { fEntries.clear(); }

    // Returns an id for removeListener.
    int addListener(Listener listener);
    void removeListener(int id);
    // Whether entries are also written to stdout/stderr (on by default).
    void setEcho(bool on) { fEcho = on; }

private:
    std::vector<Entry> fEntries;
    std::map<int, Listener> fListeners;
    size_t fErrorsLogged = 0;
    int fNextListenerId = 1;
    bool fEcho = true;
};

MessageLog& messageLog();

}  // namespace mhost
