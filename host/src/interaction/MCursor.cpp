#include <maya/MCursor.h>

const MCursor MCursor::defaultCursor("default");
const MCursor MCursor::crossHairCursor("crossHair");
const MCursor MCursor::doubleCrossHairCursor("doubleCrossHair");
const MCursor MCursor::editCursor("edit");
const MCursor MCursor::pencilCursor("pencil");
const MCursor MCursor::handCursor("hand");

MCursor::MCursor(const char* name) : fName(std::make_shared<const std::string>(name)) {}
MCursor::MCursor(short, short, short, short, unsigned char*, unsigned char*) : MCursor("custom") {}
MCursor::MCursor(const MCursor& other) = default;
MCursor::~MCursor() = default;
MCursor& MCursor::operator=(const MCursor&) = default;
bool MCursor::operator==(const MCursor& other) const { return fName == other.fName; }
bool MCursor::operator!=(const MCursor& other) const { return !(*this == other); }
const char* mhost::cursorName(const MCursor& cursor) { return cursor.fName->c_str(); }
