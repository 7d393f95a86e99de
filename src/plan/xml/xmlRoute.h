#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace vorlent {

/// An XML text of a route. Nothing in it is expanded but the five entities of XML itself, and a
/// document type, in which others could be declared, is refused.
class XmlRoute {
 public:
  /// Raises InvalidCall with the line of the fault.
  explicit XmlRoute(std::string_view text);

  /// The child of this name, and of it the child of the next, from the document on. Raises
  /// InvalidCall when there is none.
  pugi::xml_node node(std::initializer_list<const char*> path) const;

 private:
  pugi::xml_document document_;
};

/// What stands between the tags of a child, without blanks around it; empty without the child.
std::string childText(pugi::xml_node node, const char* name);

}  // namespace vorlent
