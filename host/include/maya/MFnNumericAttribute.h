#pragma once
// MFnNumericAttribute: creates and edits numeric attributes, scalars (kInt, kDouble, ...) and numeric
// compounds of two to four numbers (k3Double, k3Float, points, colours) whose components are also
// reachable as child attributes.

#include <maya/MFnAttribute.h>
#include <maya/MFnNumericData.h>

class OPENMAYA_EXPORT MFnNumericAttribute : public MFnAttribute {
    MHOST_DECLARE_MFN(MFnNumericAttribute)

    // Creates a numeric attribute of the given type, every component defaulting to defaultValue, and
    // attaches the set to it. Compound types get children named fullName/briefName + "X", "Y", "Z",
    // "W". Empty or malformed names and kInvalid/kAddr/kLast fail with a null object.
    MObject create(const MString& fullName, const MString& briefName, MFnNumericData::Type unitType,
                   double defaultValue = 0, MStatus* ReturnStatus = NULL);
    // A k3Float compound used as a colour; children are named with "R", "G", "B" appended.
    MObject createColor(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);
    // A k3Double compound; children are named with "X", "Y", "Z" appended.
    MObject createPoint(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);
    // A numeric compound made of two to four existing scalar numeric attributes of one element type
    // (short, int, float or double) that have no parent yet; its type follows, e.g. 3 doubles make
    // k3Double. Its defaults are the children's.
    MObject create(const MString& fullName, const MString& briefName, const MObject& child1,
                   const MObject& child2, const MObject& child3 = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, const MObject& child1,
                   const MObject& child2, const MObject& child3, const MObject& child4,
                   MStatus* ReturnStatus = NULL);

    // The numeric type of the attribute, e.g. k3Double for a point.
    MFnNumericData::Type unitType(MStatus* ReturnStatus = NULL) const;
    // The child attribute of a numeric compound at the index; null with kInvalidParameter when
    // there is none.
    MObject child(unsigned int index, MStatus* ReturnStatus = NULL) const;

    // Whether a hard minimum / maximum was set.
    bool hasMin(MStatus* ReturnStatus = NULL) const;
    bool hasMax(MStatus* ReturnStatus = NULL) const;
    // Read the limits, one value per component. kFailure when no limit was set, kInvalidParameter
    // when the number of values differs from the attribute's component count.
    MStatus getMin(double& min1) const;
    MStatus getMin(double& min1, double& min2) const;
    MStatus getMin(double& min1, double& min2, double& min3) const;
    MStatus getMin(double& min1, double& min2, double& min3, double& min4) const;
    MStatus getMax(double& max1) const;
    MStatus getMax(double& max1, double& max2) const;
    MStatus getMax(double& max1, double& max2, double& max3) const;
    MStatus getMax(double& max1, double& max2, double& max3, double& max4) const;
    // Set the limits, one value per component (kInvalidParameter when the count differs). A
    // compound's limits clamp its components; a child's own limits are kept on the child.
    MStatus setMin(double min1);
    MStatus setMin(double min1, double min2);
    MStatus setMin(double min1, double min2, double min3);
    MStatus setMin(double min1, double min2, double min3, double min4);
    MStatus setMax(double max1);
    MStatus setMax(double max1, double max2);
    MStatus setMax(double max1, double max2, double max3);
    MStatus setMax(double max1, double max2, double max3, double max4);

    // Read the default, one value per component (kInvalidParameter when the count differs);
    // values convert to the requested type.
    MStatus getDefault(bool& def1);
    MStatus getDefault(char& def1);
    MStatus getDefault(int& def1);
    MStatus getDefault(int& def1, int& def2);
    MStatus getDefault(int& def1, int& def2, int& def3);
    MStatus getDefault(float& def1);
    MStatus getDefault(float& def1, float& def2);
    MStatus getDefault(float& def1, float& def2, float& def3);
    MStatus getDefault(double& def1);
    MStatus getDefault(double& def1, double& def2);
    MStatus getDefault(double& def1, double& def2, double& def3);
    MStatus getDefault(double& def1, double& def2, double& def3, double& def4);
    // Set the default, one value per component, rounded as the attribute's type stores it. A
    // compound and its children always agree on their defaults.
    MStatus setDefault(bool def1);
    MStatus setDefault(char def1);
    MStatus setDefault(int def1);
    MStatus setDefault(int def1, int def2);
    MStatus setDefault(int def1, int def2, int def3);
    MStatus setDefault(float def1);
    MStatus setDefault(float def1, float def2);
    MStatus setDefault(float def1, float def2, float def3);
    MStatus setDefault(double def1);
    MStatus setDefault(double def1, double def2);
    MStatus setDefault(double def1, double def2, double def3);
    MStatus setDefault(double def1, double def2, double def3, double def4);
};
