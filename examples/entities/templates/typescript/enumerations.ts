<% var comment = "//" include "templates/notice.txt" -%>
<% for enumeration in enumerations -%>
<%
  func asText(_ value)
    return "\"\(value.escaped())\""
  end
  var type = typeName(enumeration["name"])
  var values = enumeration["values"].map(asText).joined(separator: ", ")
  var constant = enumeration["name"].lowerCamelCased()
-%>

/** <%= enumeration["documentation"] %> */
export type <%= type %> = (typeof <%= constant %>Values)[number];

export const <%= constant %>Values = [<%= values %>] as const;

export function is<%= type %>(value: unknown): value is <%= type %> {
  return <%= constant %>Values.some((known) => known === value);
}
<% end -%>
