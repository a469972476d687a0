#include "runner/RunLog.h"

#include <maya/MGlobal.h>
#include <mhost/Driver.h>

#include <iostream>
#include <memory>

namespace kystrake {

// Writes everything to two stream buffers: the original standard error, and the log's capture.
class RunLog::TeeBuffer : public std::streambuf {
public:
    TeeBuffer(std::streambuf* first, std::streambuf* second) : first_(first), second_(second) {}

protected:
    int overflow(int c) override {
        if (c == traits_type::eof()) return traits_type::not_eof(c);
        const int a = first_->sputc(static_cast<char>(c)), b = second_->sputc(static_cast<char>(c));
        return a == traits_type::eof() || b == traits_type::eof() ? traits_type::eof() : c;
    }
    int sync() override { return first_->pubsync() | second_->pubsync(); }

private:
    std::streambuf* first_;
    std::streambuf* second_;
};

RunLog::RunLog(bool echo) {
    listener_ = mhost::driver::addMessageListener([this](const mhost::driver::Message& message) {
        using Kind = mhost::driver::Message::Kind;
        if (message.kind == Kind::kError) ++errors_;
        const char* kind = message.kind == Kind::kError     ? "error"
                           : message.kind == Kind::kWarning ? "warning"
                           : message.kind == Kind::kInfo    ? "info"
                                                            : "output";
        note(std::string(kind) + ": " + message.text);
    });
    originalError_ = std::cerr.rdbuf();
    if (echo) {
        tee_ = std::make_unique<TeeBuffer>(originalError_, captured_.rdbuf());
        std::cerr.rdbuf(tee_.get());
    } else {
        std::cerr.rdbuf(captured_.rdbuf());
    }
}

RunLog::~RunLog() {
    std::cerr.rdbuf(originalError_);
    mhost::driver::removeMessageListener(listener_);
}

void RunLog::beginStep(const std::string& label) {
    takeStandardError();
    step_ = label;
}

// Error lines the plug-in wrote to the standard error stream ("API error detected in ...") join the
// log line by line, under the step that wrote them.
void RunLog::takeStandardError() {
    std::string line;
    while (std::getline(captured_, line)) {
        if (line.empty()) continue;
        if (line.rfind("// ", 0) == 0) continue;  // the host's own echo of messages already logged
        ++errors_;
        note("stderr: " + line);
    }
    captured_.clear();
    captured_.str("");
}

void RunLog::checkTextChannels() {
    takeStandardError();
    const std::string status = MGlobal::optionVarStringValue("kyStrake_info1").asChar();
    const std::string help = MGlobal::optionVarStringValue("kyStrake_info2").asChar();
    if (status != status_) note("status: " + status);
    if (help != help_) note("help: " + help);
    status_ = status;
    help_ = help;
}

void RunLog::note(const std::string& line) { lines_.push_back("[" + step_ + "] " + line); }

void RunLog::write(std::ostream& out) const {
    for (const auto& line : lines_) out << line << '\n';
}

}  // namespace kystrake
