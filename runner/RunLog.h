#pragma once
// The log of a run: every change of the tool's two text channels (the status line "kyStrake_info1" and
// the help line "kyStrake_info2"), every message the host printed, and every error line written to
// the standard error stream, each tagged with the step that caused it.

#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace kystrake {

class RunLog {
public:
    // Starts listening to the host's messages and capturing the standard error stream; with `echo`
    // what is captured is also written through to the terminal.
    explicit RunLog(bool echo);
    // Stops listening and gives the standard error stream back.
    ~RunLog();
    RunLog(const RunLog&) = delete;
    RunLog& operator=(const RunLog&) = delete;

    // Tags what follows with a step ("step 3 press").
    void beginStep(const std::string& label);
    // Notes the text channels when they changed since the last look.
    void checkTextChannels();
    void note(const std::string& line);

    const std::vector<std::string>& lines() const { return lines_; }
    int errorCount() const { return errors_; }
    void write(std::ostream& out) const;

private:
    class TeeBuffer;
    void takeStandardError();

    std::vector<std::string> lines_;
    std::string step_ = "setup";
    std::string status_, help_;
    int errors_ = 0;
    int listener_ = 0;
    std::stringstream captured_;
    std::streambuf* originalError_ = nullptr;
    std::unique_ptr<TeeBuffer> tee_;
};

}  // namespace kystrake
