<% var comment = "//" include "templates/notice.txt" -%>
export * from "./checks.js";
export * from "./enumerations.js";
<% for entity in entities.sorted(by: isNamedBefore) -%>
export * from "./<%= entity["name"].lowerCamelCased() %>.js";
<% end -%>
