#include "graph/DataObject.h"

namespace mhost {

DataPtr dataOf(const MObject& object) { return objectAs<DataObject>(object.hostObject()); }

MObject wrapData(DataPtr data) { return MObject(std::move(data)); }

}  // namespace mhost
