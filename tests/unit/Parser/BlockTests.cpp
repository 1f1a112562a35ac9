// `if`, `for`, `while` and `switch`.
#include <gtest/gtest.h>

#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

TEST(ParserBlocks, GivesIfs) {
  expectRows(
      {
          {"if a end", "(if a [])"},
          {"if a; x end", "(if a [x])"},
          {"if a x else y end", "(if a [x] else [y])"},
          {"if a else; y end", "(if a [] else [y])"},
          {"if a else if b else if c else d end", "(if a [] elseif b [] elseif c [] else [d])"},
          {"if a x else if b; y end z", "(if a [x] elseif b [y]) z"},
          {"if a if b else c end else d end", "(if a [(if b [] else [c])] else [d])"},
          {"if a (b) end", "(if (call a b) [])"},
          {"if (a) b end", "(if (group a) [b])"},
          {"if a = 1; x end", "(if (= a 1) [x])"},
          {"if a break end", "(if a [break])"},
          {"if a var x end", "(if a [(var x)])"},
      },
      parsedProgram);
  expectRows(
      {{"<% if a %>x<% else %><% if b %>y<% end %>", "(if a [(text x)] elseif b [(text y)])"},
       {"<% if a %>x<% else %> <% if b %>y<% end %><% end %>", "(if a [(text x)] else [(text  ) (if b [(text y)])])"}},
      parsedTemplate);
}

TEST(ParserBlocks, ReportsBrokenIfs) {
  expectRows(
      {
          {"if a", "! 1:4-1:5 Expect 'end' after if."},
          {"if a x", "! 1:6-1:7 Expect 'end' after if."},
          {"if a else x", "! 1:11-1:12 Expect 'end' after if."},
          {"if a x else y else z end", "! 1:15-1:19 Expected expression. ! 1:22-1:25 Expect 'end' after if."},
          {"if a x else y else z end return 1 end", "(if a [x] else [y (return 1)]) ! 1:15-1:19 Expected expression."},
          {"if end", "! 1:4-1:7 Expected expression."},
          {"else x", "! 1:1-1:5 Expected expression."},
      },
      parsedProgram);
}

TEST(ParserBlocks, GivesForsAndWhiles) {
  expectRows(
      {
          {"for a in b end", "(for (a) b [])"},
          {"for a in b; x y end", "(for (a) b [x y])"},
          {"for (a) in x end", "(for (a) x [])"},
          {"for (a, b) in x end", "(for (a b) x [])"},
          {"for (a, b, c) in x break end", "(for (a b c) x [break])"},
          {"while a end", "(while a [])"},
          {"while a; x end y", "(while a [x]) y"},
          {"while a while b end end", "(while a [(while b [])])"},
      },
      parsedProgram);
}

TEST(ParserBlocks, ReportsBrokenForsAndWhiles) {
  expectRows(
      {
          {"for a b in c end", "! 1:7-1:8 Expect 'in' after for loop identifier."},
          {"for (a b) in c end", "! 1:8-1:9 Expected ')' closing tuple."},
          {"for () in c end", "! 1:6-1:7 Expected identifier in tuple."},
          {"for (a,) in c end", "! 1:8-1:9 Expected identifier in tuple."},
          {"for _ in c end", "! 1:5-1:6 Expect identifier"},
          {"for 1 in c end", "! 1:5-1:6 Expect identifier"},
          {"for", "! 1:1-1:4 Expect identifier"},
          {"for a", "! 1:5-1:6 Expect 'in' after for loop identifier."},
          {"for (a", "! 1:6-1:7 Expected ')' closing tuple."},
          {"for a in b", "! 1:10-1:11 Expect 'end' after block."},
          {"for a in b else end", "! 1:12-1:16 Expected expression. ! 1:17-1:20 Expect 'end' after block."},
          {"while a", "! 1:7-1:8 Expect 'end' after block."},
          {"while a x", "! 1:9-1:10 Expect 'end' after block."},
      },
      parsedProgram);
}

TEST(ParserBlocks, GivesSwitches) {
  expectRows(
      {
          {"switch a end", "(switch a)"},
          {"switch a; end", "(switch a)"},
          {"switch a case 1: x end", "(switch a (case 1 [x]))"},
          {"switch a case 1: x case 2: break default: y end", "(switch a (case 1 [x]) (case 2 []) default [y])"},
          {"switch a case 1: x break case 2: y end", "(switch a (case 1 [x]) (case 2 [y]))"},
          {"switch a case is Number: x end", "(switch a (case is Number [x]))"},
          {"switch a case x: y end", "(switch a (case x [y]))"},
          {"switch a case x + 1: y end", "(switch a (case (+ x 1) [y]))"},
          {"switch a case b is T: y end", "(switch a (case (is b T) [y]))"},
          {"switch a default: x end", "(switch a default [x])"},
          {"switch a default: x break end", "(switch a default [x])"},
          {"switch a default: break end", "(switch a)"},
          {"switch a case 1: break default: break end", "(switch a (case 1 []))"},
          {"switch a case 1: if b break end end", "(switch a (case 1 [(if b [break])]))"},
          {"switch a default: while b break end end", "(switch a default [(while b [break])])"},
          {"switch a case 1: x; y end", "(switch a (case 1 [x y]))"},
      },
      parsedProgram);
  expectRows({{"<% switch a case 1: %>x<% case 2: %>y<% default: %>z<% end %>",
               "(switch a (case 1 [(text x)]) (case 2 [(text y)]) default [(text z)])"}},
             parsedTemplate);
}

TEST(ParserBlocks, ReportsBrokenSwitches) {
  expectRows(
      {
          {"switch a", "! 1:8-1:9 Expect 'end' after switch."},
          {"switch a x end", "! 1:10-1:11 Expect 'end' after switch."},
          {"switch a case 1: end", "! 1:10-1:14 'case' should have at least one statement."},
          {"switch a case 1: case 2: x end", "! 1:10-1:14 'case' should have at least one statement."},
          {"switch a default: end", "! 1:10-1:17 'default' should have at least one statement."},
          {"switch a default: x case 1: y end",
           "! 1:21-1:25 Expected expression. ! 1:31-1:34 Expect 'end' after switch."},
          {"switch a default: x default: y end",
           "! 1:21-1:28 Expected expression. ! 1:32-1:35 Expect 'end' after switch."},
          {"switch a case 1: break x end", "! 1:24-1:25 Expect 'end' after switch."},
          {"switch a case 1: break; end", "! 1:23-1:24 Expect 'end' after switch."},
          {"switch a case 1: break break end", "! 1:24-1:29 Expect 'end' after switch."},
          {"switch a case 1 x end", "! 1:17-1:18 Expect ':' after case."},
          {"switch a case 1", "! 1:15-1:16 Expect ':' after case."},
          {"switch a case is 1: x end", "! 1:18-1:19 Expect identifier after 'is'."},
          {"switch a case is", "! 1:15-1:17 Expect identifier after 'is'."},
          {"switch a case (is): x end", "! 1:16-1:18 Expected expression."},
          {"switch a case: x end", "! 1:14-1:15 Expected expression."},
          {"switch a default x end", "! 1:18-1:19 Expect ':' after default."},
          {"switch a default", "! 1:10-1:17 Expect ':' after default."},
          {"switch a case 1: )",
           "! 1:18-1:19 Expected expression. ! 1:10-1:14 'case' should have at least one statement."},
      },
      parsedProgram);
  expectRows({{"<% switch a %> <% case 1: %>x<% end %>",
               "(text x) ! 1:15-1:16 Expect 'end' after switch. ! 1:33-1:36 Expected expression."}},
             parsedTemplate);
}

TEST(ParserBlocks, GivesExactRanges) {
  expectRows(
      {
          {"if a end", "(if a@1:4-1:5 [])@1:1-1:5"},
          {"if a; end", "(if a@1:4-1:5 [])@1:1-1:6"},
          {"if a x end", "(if a@1:4-1:5 [x@1:6-1:7@1:6-1:7])@1:1-1:7"},
          {"if a x; else y end", "(if a@1:4-1:5 [x@1:6-1:7@1:6-1:7] else [y@1:14-1:15@1:14-1:15])@1:1-1:8"},
          {"if a while b end else if c end",
           "(if a@1:4-1:5 [(while b@1:12-1:13 [])@1:6-1:17] elseif c@1:26-1:27 [])"
           "@1:1-1:17"},
          {"while a x end", "(while a@1:7-1:8 [x@1:9-1:10@1:9-1:10])@1:1-1:14"},
          {"for a in b end", "(for (a)@1:5-1:6 b@1:10-1:11 [])@1:1-1:15"},
          {"for (a,\nb) in c end", "(for (a b)@1:5-2:3 c@2:7-2:8 [])@1:1-2:12"},
          {"switch a case 1: x default: y end",
           "(switch a@1:8-1:9 (case 1@1:15-1:16 [x@1:18-1:19@1:18-1:19])@1:10-1:17 default "
           "[y@1:29-1:30@1:29-1:30])@1:1-1:34"},
      },
      parsedRanges);
}

}  // namespace
}  // namespace velto
