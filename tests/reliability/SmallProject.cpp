#include "tests/reliability/SmallProject.h"

namespace velto::test {

struct Book {
  std::string title;
  int pages;
};
BOOST_DESCRIBE_STRUCT(Book, (), (title, pages))

namespace {

const Files project = {
    {"main.velto", R"velto(execute("functions.velto")
var model = loadJSON("model.json")
mkdir("\(outputPath)/parts/inner")
copy(from: "static", to: "\(outputPath)/static")

func nameOf(_ entry) return entry["name"] end
func isLong(_ text) return text.contains("e") end
func before(_ left, _ right) return order[left] < order[right] end
func numberOf(_ entry) return entry["number"] end

var order = [1: 10, 2: 5, 3: 7, 4: 1]
var names = model["entries"].map(nameOf)
process("list.txt", into: "list.txt")
for entry in model["entries"]
  var name = entry["name"]
  var number = entry["number"]
  func title() return "\(name.upperCamelCased()): \(number)" end
  var a = 1 var b = 2 var c = 3 var d = 4 var e = 5 var f = 6 var g = 7 var h = 8 var i = 9
  process("entry.txt", into: "parts/\(name.snakeCased()).txt")
end
include "footer.txt"
var sorted = [4, 2, 1, 3].sorted(by: before)
var long = names.filter(isLong).joined(separator: "/")
print("\(sorted) \(long) \(book) \(book is Book)")
)velto"},
    {"functions.velto", R"velto(func twice(_ text)
  return "\(text)\(text)"
end
func factorial(of number)
  if number < 2 return 1 end
  return number * factorial(of: number - 1)
end
func counter(from start)
  var next = start
  func count() next = next + 1 return next end
  return count
end
)velto"},
    {"model.json", R"velto({"title": "Caf\u00e9", "entries": [
  {"name": "first one", "number": 1, "tags": ["x", "y"], "deep": [[[[[[[[[[[[[[[[[[[[1]]]]]]]]]]]]]]]]]]]]},
  {"name": "énd of ALL", "number": 2.5e1, "tags": [], "e\u0301": true},
  {"name": "middle", "number": -3, "tags": [null, false, "\ud83d\ude00"], "é": 1}]})velto"},
    {"list.txt", R"velto(<%= model["title"].uppercased() %> <%= model["title"] == "Café" %>
<% for entry in model["entries"] -%>
* <%= entry["name"] %> <%= entry["é"] %> <%= entry["tags"] %>
<% end -%>
<% var next = counter(from: 3) next() -%>
<%= next() %> <%= factorial(of: 6) %> <%= twice("ab").escaped() %> <%= "Σίσυφος ΣΑΣ".lowercased() %>
<%= "👩‍👩‍👧❤️‍🔥"[1] %> <%= "क्षत्रिय"[0] %> <%= "straße ǅ".uppercased() %>
)velto"},
    {"entry.txt", R"velto(<%= title() %>
<% switch entry["number"] case 1: -%>
one <%= a + i %>
<% case 25: -%>
more than one <%= entry["deep"] is Array %>
<% default: -%>
other
<% end -%>
<% include "footer.txt" -%>
<% process("inner.txt", into: "parts/inner/\(name.lowerCamelCased()).txt") -%>
)velto"},
    {"inner.txt", "<% for (key, value) in entry -%>\n<%= key %>=<%= value %>;<% end %>"},
    {"footer.txt", "-- <%= [1, [2: \"b\"], 0..<3] %> <%= 1 + 2 * 3 %> --\n"},
    {"static/a.txt", "copied"},
    {"static/inner/b.txt", "copied as well"},
    {"faulty.velto", R"velto(for part in ["missing", "syntax", "calls", "sorting"] execute("\(part).velto") end
process("broken.txt", into: "broken.txt")
var found = loadJSON("static/a.txt")
var copied = copy(from: "nowhere", to: "\(outputPath)/nowhere")
print("\(found) \(copied) \(mkdir(3))")
break
)velto"},
    {"keeping.velto", R"velto(for first in [1] end
if false print("1") else if true print("2") end
func apart() end
func leave()
  var deep = [[apart]]
  func itself() return itself end
end
var last = leave
for number in 0..<70
  leave()
  var before = last
  func held() return before end
  last = held
end
print(last()()())
)velto"},
    {"missing.velto", "process(\"missing.txt\", into: \"missing.txt\")"},
    {"syntax.velto", "include \"syntax.txt\""},
    {"calls.velto", "func outer(_ x) return missing(x) end outer(\"é\")"},
    {"sorting.velto", "func contrary(_ x, _ y) return x end [2, \"b\", 1].sorted(by: contrary)"},
    {"broken.txt", "before <%= 1 %> <% for (key, value) in [\"a\": 1] print(value) end print(nil + 1) %> behind"},
    {"syntax.txt", "<% var = ) %> <% func ( %>"},
};

const Files expected = {
    {"list.txt", R"velto(CAFÉ true
* first one nil [x, y]
* énd of ALL true []
* middle 1 [nil, false, 😀]
5 720 abab σίσυφος σας
❤️‍🔥 क्ष STRASSE Ǆ
)velto"},
    {"parts/first_one.txt", R"velto(FirstOne: 1
one 10
-- [1, [2: b], 0..<3] 7 --
)velto"},
    {"parts/inner/firstOne.txt", "name=first one;number=1;tags=[x, y];deep=[[[[[[[[[[[[[[[[[[[[1]]]]]]]]]]]]]]]]]]]];"},
    {"parts/inner/middle.txt", "name=middle;number=-3;tags=[nil, false, 😀];é=1;"},
    {"parts/inner/éndOfAll.txt", "name=énd of ALL;number=25;tags=[];é=true;"},
    {"parts/middle.txt", R"velto(Middle: -3
other
-- [1, [2: b], 0..<3] 7 --
)velto"},
    {"parts/énd_of_all.txt", R"velto(ÉndOfAll: 25
more than one false
-- [1, [2: b], 0..<3] 7 --
)velto"},
    {"static/a.txt", "copied"},
    {"static/inner/b.txt", "copied as well"},
};

const std::string output = R"velto(-- [1, [2: b], 0..<3] 7 --
[4, 2, 3, 1] first one/énd of ALL/middle Book(title: Middlemarch, pages: 904) true)velto";

}  // namespace

const Files& smallProject() {
  return project;
}

const Files& expectedFiles() {
  return expected;
}

const std::string& expectedOutput() {
  return output;
}

std::map<String, Value> smallProjectGlobals() {
  return {{"book", object(Book{"Middlemarch", 904})}};
}

}  // namespace velto::test
