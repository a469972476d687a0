#include "interaction/CameraNode.h"

#include <maya/MPlug.h>

#include "graph/ApiBridge.h"
#include "graph/BuiltinNodeTypes.h"

namespace mhost {
namespace {

constexpr double kMillimetresPerInch = 25.4;

const Attribute& lensAttribute(const Node& camera, const char* name) {
    const Attribute* attribute = camera.type->findAttribute(name);
    if (!attribute) throw HostError("camera: node '" + camera.name + "' has no attribute '" + name + "'");
    return *attribute;
}

AttributePtr lensValue(const char* longName, const char* shortName, double defaultValue) {
    return makeNumericAttribute(longName, shortName, MFnNumericData::kDouble, defaultValue);
}

}  // namespace

double CameraLens::tanHalfHorizontal() const {
    return 0.5 * horizontalAperture * kMillimetresPerInch / focalLength;
}

double CameraLens::tanHalfVertical() const {
    return 0.5 * verticalAperture * kMillimetresPerInch / focalLength;
}

NodeTypePtr makeCameraType() {
    using namespace camera_attributes;
    const CameraLens defaults;
    auto type = std::make_shared<NodeType>();
    type->name = "camera";
    type->apiType = MFn::kCamera;
    type->isDag = type->isShape = true;
    addInheritedAttributes(*type);
    auto focalLength = lensValue(kFocalLength, "fl", defaults.focalLength);
    // Maya's limits on the focal length; they also keep the field of view finite.
    focalLength->hasMin = focalLength->hasMax = true;
    focalLength->minValue[0] = 2.5;
    focalLength->maxValue[0] = 100000.0;
    type->addAttribute(focalLength);
    type->addAttribute(lensValue(kHorizontalAperture, "hfa", defaults.horizontalAperture));
    type->addAttribute(lensValue(kVerticalAperture, "vfa", defaults.verticalAperture));
    type->addAttribute(lensValue(kNearClip, "ncp", defaults.nearClip));
    type->addAttribute(lensValue(kFarClip, "fcp", defaults.farClip));
    type->addAttribute(lensValue(kCenterOfInterest, "coi", 5.0));
    return type;
}

bool isCamera(const Node& node) { return node.type->apiType == MFn::kCamera; }

double cameraValue(const NodePtr& camera, const char* attribute) {
    return scene().evaluate({camera, {&lensAttribute(*camera, attribute), -1}}).numbers[0];
}

MStatus setCameraValue(const NodePtr& camera, const char* attribute, double value) {
    return makePlug({camera, {&lensAttribute(*camera, attribute), -1}}).setDouble(value);
}

CameraLens readLens(const NodePtr& camera) {
    using namespace camera_attributes;
    CameraLens lens;
    lens.focalLength = cameraValue(camera, kFocalLength);
    lens.horizontalAperture = cameraValue(camera, kHorizontalAperture);
    lens.verticalAperture = cameraValue(camera, kVerticalAperture);
    lens.nearClip = cameraValue(camera, kNearClip);
    lens.farClip = cameraValue(camera, kFarClip);
    return lens;
}

}  // namespace mhost
