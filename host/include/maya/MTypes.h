#pragma once
// Common definitions of the headless host's Maya API: export macros, the API version and the small
// handle and platform types that Maya's headers share.

#include <cmath>
#include <cstddef>
#include <cstdint>

#define MAYA_APP_VERSION 2019
#define MAYA_API_VERSION 20190300

#define OPENMAYA_EXPORT __attribute__((visibility("default")))
#define OPENMAYAUI_EXPORT __attribute__((visibility("default")))
#define OPENMAYAANIM_EXPORT __attribute__((visibility("default")))
#define OPENMAYARENDER_EXPORT __attribute__((visibility("default")))
#define FND_EXPORT __attribute__((visibility("default")))
#define PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))

#ifndef M_PI
#define M_PI 3.14159265358979323846
#endif

class MStatus;
class MString;
class MObject;
class MSyntax;

// Function types a plug-in hands to MFnPlugin: a creator returning a new instance, a syntax builder
// for commands, and a static initialiser for node types.
typedef void* (*MCreatorFunction)();
typedef MSyntax (*MCreateSyntaxFunction)();
typedef MStatus (*MInitializeFunction)();

// An unsigned integer as wide as a pointer (callback ids are of this type).
typedef uintptr_t MUintPtrSz;

typedef double double3[3];
typedef float float3[3];
typedef signed int int2[2];
typedef float float2[2];

// Space in which a geometric query or edit is expressed.
class MSpace {
public:
    enum Space {
        kInvalid = 0,
        kTransform = 1,
        kPreTransform = 2,
        kPostTransform = 3,
        kWorld = 4,
        kObject = kPreTransform,
        kLast = 5
    };
};
