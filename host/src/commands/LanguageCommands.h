#pragma once
// The commands of the language itself:
//   undo, redo       replay the undo queue; with nothing to replay, a warning and success.
//   optionVar        -iv/-intValue name int, -fv/-floatValue name real, -sv/-stringValue name text
//                    (all multi-use, applied in line order), -rm/-remove name, -ex/-exists name
//                    (result 1 or 0; the other flags are then ignored), -q name (the value, 0 when
//                    the variable does not exist). Changes are not recorded for undo.
//   print            writes its argument as is; several arguments (a substituted array) one a line.

#include "commands/CommandTable.h"

namespace mhost {

void addLanguageCommands(CommandTable& table);

}  // namespace mhost
