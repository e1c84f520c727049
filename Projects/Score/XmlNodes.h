#pragma once

#include <pugixml.hpp>

#include <string>

/// Short words for making the nodes of an XML tree. Texts are UTF-8 and need no escaping.
namespace Score::XmlNodes {

inline pugi::xml_node Add(pugi::xml_node parent, const char* name) {
    return parent.append_child(name);
}

inline pugi::xml_node Add(pugi::xml_node parent, const char* name, const std::string& text) {
    pugi::xml_node node = parent.append_child(name);
    node.text().set(text.c_str());
    return node;
}

inline pugi::xml_node Add(pugi::xml_node parent, const char* name, int number) {
    return Add(parent, name, std::to_string(number));
}

inline void Set(pugi::xml_node node, const char* attribute, const std::string& value) {
    node.append_attribute(attribute).set_value(value.c_str());
}

} // namespace Score::XmlNodes
