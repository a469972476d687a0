#pragma once
// The names scene files use, shared by the writer and the reader.
//
// A scene file is one JSON object:
//   "format": kFormatName, "version": kFormatVersion,
//   "nodes": [{"name", "type", "uuid", "parent" (DAG nodes under a transform), "values": [{"attribute",
//             "index" (array elements only), "numbers" (numeric attributes), "data": {"type", "value"}}]}],
//   "connections": [{"source": plug, "destination": plug}] with plug = {"node", "attribute", "index"},
//   "selection": [selection strings], "optionVars": {name: {"kind", "value"}},
//   "viewCamera": the camera shape the view looks through (left out when it has none).
// Nodes come parents first, so a reader can create them in order.

namespace mhost {
namespace scenefile {

constexpr const char* kFormatName = "mhost-scene";
constexpr int kFormatVersion = 1;

}  // namespace scenefile
}  // namespace mhost
