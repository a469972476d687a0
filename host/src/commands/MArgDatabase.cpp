#include <maya/MArgDatabase.h>
#include <maya/MString.h>

MArgDatabase::MArgDatabase() = default;
MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : MArgParser(syntax, argList, ReturnStatus) {}
MArgDatabase::~MArgDatabase() = default;

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, bool& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, int& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, double& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MString& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, bool& result) const {
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, int& result) const {
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, double& result) const {
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, MString& result) const {
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getObjects(MStringArray& result) const { return MArgParser::getObjects(result); }

const char* MArgDatabase::className() { return "MArgDatabase"; }
