#include "messages/Notifications.h"

#include "messages/CallbackRegistry.h"

namespace mhost {

void notifyEvent(const std::string& event) { callbackRegistry().fireEvent(event); }

void notifyPlugSet(const PlugRef& plug) {
    const auto message = static_cast<MNodeMessage::AttributeMessage>(MNodeMessage::kAttributeSet |
                                                                     MNodeMessage::kIncomingDirection);
    callbackRegistry().fireAttributeChanged(message, plug);
}

}  // namespace mhost
