#include <maya/MTypeId.h>

MTypeId::MTypeId() : fId(0) {}
MTypeId::~MTypeId() = default;
MTypeId::MTypeId(unsigned int id) : fId(id) {}
MTypeId::MTypeId(unsigned int prefix, unsigned int id) : fId(((prefix & 0xFFFFFFu) << 8) | (id & 0xFFu)) {}
MTypeId::MTypeId(const MTypeId& src) = default;
MTypeId& MTypeId::operator=(const MTypeId& rhs) = default;
bool MTypeId::operator==(const MTypeId& rhs) const { return fId == rhs.fId; }
bool MTypeId::operator!=(const MTypeId& rhs) const { return fId != rhs.fId; }

unsigned int MTypeId::id(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return fId;
}
