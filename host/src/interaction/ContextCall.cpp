#include "interaction/ContextCall.h"

#include <exception>

#include "commands/MessageLog.h"
#include "interaction/IssuedToolCommands.h"

namespace mhost {
namespace {

// Depth of nested calls; the outermost one clears the unfinalised tool commands on its way out, also
// when the call throws.
class CallDepth {
public:
    CallDepth() { ++depth(); }
    ~CallDepth() {
        if (--depth() == 0) issuedToolCommands().clear();
    }
    CallDepth(const CallDepth&) = delete;
    CallDepth& operator=(const CallDepth&) = delete;

private:
    static int& depth() {
        static int value = 0;
        return value;
    }
};

}  // namespace

MStatus callContext(const std::string& what, const std::function<MStatus()>& call) {
    CallDepth depth;
    try {
        return call();
    } catch (const std::exception& error) {
        messageLog().error(what + ": " + error.what());
    } catch (...) {
        messageLog().error(what + ": unknown failure");
    }
    return MS::kFailure;
}

}  // namespace mhost
