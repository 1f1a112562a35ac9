<% var comment = "//" include "templates/notice.txt" -%>
#pragma once

<% for header in cppHeaders(fields, relations) -%>
#include <<%= header %>>
<% end -%>

<% if !enumerationsUsed(by: fields).isEmpty -%>
#include "library/Enumerations.h"
<% end -%>
#include "library/Id.h"

namespace library {

<% for target in targets(of: entity) -%>
struct <%= typeName(target["name"]) %>;
<% end -%>
<% if !targets(of: entity).isEmpty -%>

<% end -%>
/// <%= entity["documentation"] %>
struct <%= type %> {
  Id<<%= type %>> id;
<% for relation in relations -%>

  /// <%= relation["documentation"] %>
  <%= cppRelation(relation) %>
<% end -%>
<% for field in fields -%>

  /// <%= field["documentation"] %>
  <%= cppField(field) %>
<% end -%>

  friend bool operator==(const <%= type %>&, const <%= type %>&) = default;
};

<% var record = cppName(entity["name"]) -%>
/// What keeps `<%= record %>` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const <%= type %>& <%= record %>);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const <%= type %>& <%= record %>);

}  // namespace library
