#include "plan/xml/xmlRoute.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/text.h"
#include "plan/routeFaults.h"

namespace vorlent {
namespace {

std::string lineAt(std::string_view text, std::ptrdiff_t offset) {
  const auto end = text.begin() + std::clamp<std::ptrdiff_t>(offset, 0, std::ssize(text));
  return "line " + std::to_string(1 + std::count(text.begin(), end, '\n'));
}

/// "gfp:route" becomes "route": a prefix only stands for the name space.
struct WithoutPrefix : pugi::xml_tree_walker {
  bool for_each(pugi::xml_node& node) override {
    const std::string name = node.name();
    const auto colon = name.find(':');
    if (colon != std::string::npos) node.set_name(name.substr(colon + 1).c_str());
    return true;
  }
};

}  // namespace

XmlRoute::XmlRoute(std::string_view text) {
  const auto result =
      document_.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_doctype);
  if (!result) refuseRoute(lineAt(text, result.offset), result.description());
  for (const pugi::xml_node child : document_.children())
    if (child.type() == pugi::node_doctype)
      refuseRoute(lineAt(text, child.offset_debug()), "a document type is not taken");
  WithoutPrefix walker;
  document_.traverse(walker);
}

pugi::xml_node XmlRoute::node(std::initializer_list<const char*> path) const {
  pugi::xml_node node = document_;
  std::string where;
  for (const char* name : path) {
    node = node.child(name);
    where += std::string("<") + name + ">";
    if (!node) refuseRoute(where, "there is none");
  }
  return node;
}

std::string childText(pugi::xml_node node, const char* name) {
  return trimmed(node.child_value(name));
}

}  // namespace vorlent
