// A plug-in module for the loading tests: a node that doubles its input and a command with flags.

#include <maya/MArgDatabase.h>
#include <maya/MDataBlock.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPlugin.h>
#include <maya/MPxCommand.h>
#include <maya/MPxNode.h>
#include <maya/MSyntax.h>

namespace {

class DoublerNode : public MPxNode {
public:
    static void* creator() { return new DoublerNode; }
    static MStatus initialize() {
        MFnNumericAttribute numeric;
        input = numeric.create("input", "in", MFnNumericData::kDouble, 0.0);
        output = numeric.create("output", "out", MFnNumericData::kDouble, 0.0);
        numeric.setWritable(false);
        addAttribute(input);
        addAttribute(output);
        return attributeAffects(input, output);
    }
    MStatus compute(const MPlug& plug, MDataBlock& data) override {
        if (plug != output) return MS::kUnknownParameter;
        data.outputValue(output).setDouble(2 * data.inputValue(input).asDouble());
        return data.setClean(plug);
    }
    static MObject input, output;
};

MObject DoublerNode::input, DoublerNode::output;

// greet [-n name] [-t times]: "hello name" repeated, as a string array result.
class GreetCommand : public MPxCommand {
public:
    static void* creator() { return new GreetCommand; }
    static MSyntax newSyntax() {
        MSyntax syntax;
        syntax.addFlag("-n", "-name", MSyntax::kString);
        syntax.addFlag("-t", "-times", MSyntax::kLong);
        return syntax;
    }
    MStatus doIt(const MArgList& args) override {
        MStatus status;
        MArgDatabase db(syntax(), args, &status);
        if (!status) return status;
        MString name("world");
        int times = 1;
        if (db.isFlagSet("-n")) db.getFlagArgument("-n", 0, name);
        if (db.isFlagSet("-t")) db.getFlagArgument("-t", 0, times);
        if (times < 1) {
            displayError("greet: -times must be at least 1");
            return MS::kInvalidParameter;
        }
        for (int i = 0; i < times; ++i) appendToResult("hello " + name);
        return MS::kSuccess;
    }
};

}  // namespace

MStatus initializePlugin(MObject obj) {
    MFnPlugin plugin(obj, "Tests", "1.0", "Any");
    MStatus status =
        plugin.registerNode("doubler", MTypeId(0x7101), DoublerNode::creator, DoublerNode::initialize);
    if (!status) return status;
    return plugin.registerCommand("greet", GreetCommand::creator, GreetCommand::newSyntax);
}

MStatus uninitializePlugin(MObject obj) {
    MFnPlugin plugin(obj);
    MStatus status = plugin.deregisterNode(MTypeId(0x7101));
    if (!status) return status;
    return plugin.deregisterCommand("greet");
}
