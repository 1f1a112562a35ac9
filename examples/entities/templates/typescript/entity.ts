<% var comment = "//" include "templates/notice.txt" -%>
<%
  func asType(_ name)
    return "type \(name)"
  end
  var imported = joined([
    tsChecksUsed(by: fields, relations).joined(separator: ", "),
    tsTypesUsed(by: fields).map(asType).joined(separator: ", ")
  ], with: ", ")
-%>
import { <%= imported %> } from "./checks.js";
<% for enumeration in enumerationsUsed(by: fields) -%>
import { is<%= typeName(enumeration["name"]) %>, type <%= typeName(enumeration["name"]) %> } from "./enumerations.js";
<% end -%>
<% for target in targets(of: entity) -%>
import type { <%= typeName(target["name"]) %>Id } from "./<%= target["name"].lowerCamelCased() %>.js";
<% end -%>

/** The key of a {@link <%= type %>}. */
export type <%= type %>Id = number & { readonly __key: "<%= type %>" };

/** <%= entity["documentation"] %> */
export interface <%= type %> {
  readonly id: <%= type %>Id;
<% for relation in relations -%>
  /** <%= relation["documentation"] %> */
  readonly <%= relation["name"].lowerCamelCased() %><% if isOptional(relation) %>?<% end %>: <%= typeName(relation["to"]) %>Id;
<% end -%>
<% for field in fields -%>
  /** <%= field["documentation"] %> */
  readonly <%= field["name"].lowerCamelCased() %><% if isOptional(field) %>?<% end %>: <%= tsType(of: field) %>;
<% end -%>
}

/** Whether `value`, read from JSON say, is a {@link <%= type %>}. */
export function is<%= type %>(value: unknown): value is <%= type %> {
<%
  var lines = [
    "isRecord(value)",
    "required(value, \"id\", isId)",
    relations.map(tsRelationLine).joined(separator: " &&\n    "),
    fields.map(tsFieldLine).joined(separator: " &&\n    ")
  ]
-%>
  return (
    <%= joined(lines, with: " &&\n    ") %>
  );
}
