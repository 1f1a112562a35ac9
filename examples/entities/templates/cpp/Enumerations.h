<% var comment = "//" include "templates/notice.txt" -%>
#pragma once

#include <optional>
#include <string_view>

namespace library {
<% for enumeration in enumerations -%>
<% var type = typeName(enumeration["name"]) -%>

/// <%= enumeration["documentation"] %>
enum class <%= type %> { <%= enumeration["values"].map(cppName).joined(separator: ", ") %> };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(<%= type %> <%= cppName(enumeration["name"]) %>) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<<%= type %>> <%= cppName(enumeration["name"]) %>From(std::string_view spelling) noexcept;
<% end -%>

}  // namespace library
