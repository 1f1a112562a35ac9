<% var comment = "//" include "templates/notice.txt" -%>
#include "library/<%= type %>.h"

#include <ostream>

namespace library {

<%
  var record = cppName(entity["name"])
  var required = fields.filter(isRequired)
  func isBounded(_ field)
    return field["minimum"] != nil || field["maximum"] != nil
  end
-%>
std::vector<std::string> problems(const <%= type %>& <%= record %>) {
  std::vector<std::string> found;
<% for relation in relations.filter(isRequired) -%>
  if (!<%= record %>.<%= cppName(relation["name"]) %>) found.emplace_back("<%= relation["name"] %> is missing");
<% end -%>
<% for field in required.filter(hasType(oneOf: ["text"])) -%>
  if (<%= record %>.<%= cppName(field["name"]) %>.empty()) found.emplace_back("<%= field["name"] %> is empty");
<% end -%>
<% for field in required.filter(hasType(oneOf: ["date"])) -%>
  if (!<%= record %>.<%= cppName(field["name"]) %>.ok()) found.emplace_back("<%= field["name"] %> is no date");
<% end -%>
<% for field in fields.filter(isBounded) -%>
  if (<%= cppIsOutOfBounds(field, of: record) %>) {
    found.emplace_back("<%= field["name"] %> must be <%= bounds(of: field) %>");
  }
<% end -%>
  return found;
}

std::ostream& operator<<(std::ostream& output, const <%= type %>& <%= record %>) {
  <%- if entity["title"] == nil -%>
  return output << "<%= entity["name"] %> " << <%= record %>.id.value;
  <%- else -%>
  return output << "<%= entity["name"] %> " << <%= record %>.id.value << " (" << <%= record %>.<%= cppName(entity["title"]) %> << ')';
  <%- end -%>
}

}  // namespace library
