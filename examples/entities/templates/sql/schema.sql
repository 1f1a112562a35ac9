<% var comment = "--" include "templates/notice.txt" -%>
--
-- <%= model["title"] %>: <%= model["documentation"] %>
-- Each table stands behind all that it refers to. Amounts of money are in cents.
<% for entity in entitiesInOrderOfMaking() -%>

-- <%= entity["documentation"] %>
CREATE TABLE <%= tableName(entity) %> (
  <%= tableBody(of: entity) %>
);
<% for relation in list(entity["relations"]) -%>
CREATE INDEX <%= tableName(entity) %>_by_<%= relation["name"].snakeCased() %> ON <%= tableName(entity) %> (<%= relationColumn(relation) %>);
<% end -%>
<% end -%>
