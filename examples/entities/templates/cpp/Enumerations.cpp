<% var comment = "//" include "templates/notice.txt" -%>
#include "library/Enumerations.h"

namespace library {
<% for enumeration in enumerations -%>
<% var type = typeName(enumeration["name"]) var variable = cppName(enumeration["name"]) -%>

std::string_view spelling(<%= type %> <%= variable %>) noexcept {
  switch (<%= variable %>) {
  <%- for value in enumeration["values"] -%>
    case <%= type %>::<%= cppName(value) %>:
      return "<%= value.escaped() %>";
  <%- end -%>
  }
  return {};
}

std::optional<<%= type %>> <%= variable %>From(std::string_view spelling) noexcept {
  <%- for value in enumeration["values"] -%>
  if (spelling == "<%= value.escaped() %>") return <%= type %>::<%= cppName(value) %>;
  <%- end -%>
  return std::nullopt;
}
<% end -%>

}  // namespace library
