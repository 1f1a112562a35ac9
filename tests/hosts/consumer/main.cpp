// A host that uses every part of the interface across the border of the shared library: what is derived, thrown, cast
// and linked there. It prints a line for each group that holds.
#include <Velto/Velto.h>

#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <vector>

using namespace velto;

namespace {

void check(const bool holds, const char* what) {
  if (holds) return;
  std::cout << "broken: " << what << '\n';
  std::exit(1);
}

struct Point {
  int x;
  double y;
  float hidden;
  std::optional<std::string> note;

  bool operator==(const Point&) const = default;
};
BOOST_DESCRIBE_STRUCT(Point, (), (x, y, hidden, note))

struct Plain {
  int number;
};

class Named final : public Object {
 public:
  std::optional<Value> get(const String& name) const override {
    if (name == "name") return Value("named");
    if (name == "equals") return makeRef<Equals<Named>>();
    return getFromMirror(name);
  }
  String objectDescription() const override { return "a named object"; }

  bool operator==(const Named&) const { return true; }
};

class Doubling final : public Library {
 public:
  void load(Interpreter& interpreter) override {
    interpreter.globals().define("double", makeRef<Function1>("double", [](const Value& value) -> Value {
                                   return value.number() ? *value.number() * 2 : std::nan("");
                                 }));
  }
};

class Failing final : public Callable {
 public:
  String name() const override { return "failing"; }
  std::span<const Label> labels() const noexcept override { return {}; }
  Value call(Interpreter&, Arguments, const ReportError& reportError) const override { reportError("It fails."); }
};

/// Runs `program` in memory and gives its output, and behind it the messages.
std::string run(const std::string& program, const std::map<String, Value>& globals = {}) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = program;
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, files);
  processor.globals = globals;
  processor.libraries.push_back(std::make_shared<Doubling>());
  try {
    processor.process("main.velto");
  } catch (const VeltoError&) {
    files->files["<1>"] += "!";
  }
  std::string result = files->files["<1>"];
  for (const Message& message : logger->messages) result += "|" + std::string(message.description().view());
  return result;
}

void checkVersion() {
  check(VeltoVersionNumber == 1.0, "the version number");
  check(!std::string_view(VeltoVersionString).empty(), "the version text");
  std::cout << "version\n";
}

void checkValues() {
  check(Value(1) == Value(1.0) && !(Value(1) == Value(true)), "equality");
  check(Value("e\u0301") == Value("\u00e9"), "canonical equivalence");
  check(Value::from(std::vector<Point>{{1, 2, 3, {}}})->array()->size() == 1, "records inside of containers");
  check(!Value::from(std::vector<void*>(1)), "an unknown type");
  check(Value::verify(Value::arrayLiteral({1})), "a value array");
  check(!Value::verify(*HostValue(std::vector<std::string>{"a"}).asValue()), "a host array");
  check(std::hash<Value>()(Value("a")) == std::hash<Value>()(Value("a")), "the hash");
  check(parseJSON("{\"a\": [1, null]}")->description() == "[a: [1, nil]]", "JSON");
  std::cout << "values\n";
}

void checkObjects() {
  const Value point = object(Point{1, 2.5, 3, "here"});
  check(run("print(\"\\(p.x) \\(p.y) \\(p.note) \\(p is Point)\")", {{"p", point}}) == "1 2.5 here true",
        "a described record");
  check(!point.get("hidden"), "a float is no property");
  check(payload<Point>(point) != nullptr && payload<Plain>(point) == nullptr, "the payload of a record");
  const Value plain = object(Plain{7}, Properties<Plain>{{"number", &Plain::number}});
  check(run("print(p.number)", {{"p", plain}}) == "7", "a record with a table");
  const Value named = makeRef<Named>();
  check(run("print(\"\\(n) \\(n.name) \\(n == n)\")", {{"n", named}}) == "a named object named true",
        "a derived object");
  check(run("print(\"\\(r.center.x) \\(r)\")", {{"r", asObject(CGRect{{0, 0}, {10, 20.5}})}}) ==
            "5 {{0.0, 0.0}, {10.0, 20.5}}",
        "geometry");
  std::cout << "objects\n";
}

void checkFunctions() {
  check(run("print(double(21))") == "42", "a library");
  check(run("f()", {{"f", makeRef<Failing>()}}) ==
            "!|/main.velto:1:2: error: It fails.|/main.velto:1:1: info: failing() called here",
        "a function that fails");
  check(Value(makeRef<Function0>("f", []() -> Value { return 1; })).description() == "<callable arity 0>",
        "a description");
  std::cout << "functions\n";
}

void checkStages() {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner("<%= 1 + 2 %>", logger);
  Parser parser(Unpacker(scanner.scanTokens(), logger).unpack(), logger);
  const Statements statements = parser.parse();
  check(!parser.hadError() && statements.size() == 1, "a statement");
  check(statements[0].as<ExpressionBlock>() && !statements[0].as<If>(), "the kind of a statement");
  Interpreter interpreter(std::nullopt, logger);
  std::string output;
  interpreter.print = [&output](const String& text) { output += text.view(); };
  Resolver resolver(interpreter);
  resolver.resolve(statements);
  interpreter.interpret(statements);
  check(output == "3" && !interpreter.hadError && !resolver.hadError(), "the stages");
  ParseCache cache(logger);
  try {
    cache.getOrParse(Url("/no/such/file"), Scanner::Mode::template_);
    check(false, "a file that isn't there");
  } catch (const FileError& error) {
    check(std::string_view(error.what()) == "No such file or directory", "the reason");
  }
  std::cout << "stages\n";
}

void checkFunctionsOfLibraries() {
  const auto arityOf = [](const Ref<const Callable>& function) { return function->arity(); };
  check(arityOf(makeRef<Print>()) == 1 && arityOf(makeRef<Execute>()) == 1 && arityOf(makeRef<MakeUUID>()) == 0,
        "functions of the language's library");
  check(makeRef<Process>()->name() == "process" && makeRef<Process>()->labels()[1] == Label("into"), "process");
  check(makeRef<Copy>()->name() == "copy" && makeRef<Copy>()->labels()[0] == Label("from"), "copy");
  check(CharacterSets::letters.contains(U'\u00E9') && !CharacterSets::letters.contains(U'1'), "letters");
  check(CharacterSets::alphanumerics.contains(U'1') && !CharacterSets::alphanumerics.contains(U'_'), "alphanumerics");
  check(CharacterSets::whitespacesAndNewlines.contains(U'\n') && !CharacterSets::whitespacesAndNewlines.contains(U'\t'),
        "white space");
  check(CharacterSets::uppercaseLetters.contains(U'A') && !CharacterSets::uppercaseLetters.contains(U'a'), "capitals");
  check(CharacterSets::lowercaseLetters.contains(U'a') && !CharacterSets::lowercaseLetters.contains(U'A'),
        "small letters");
  check(characterType("x") == CharacterType::lowercase, "the type of a character");
  std::cout << "libraries\n";
}

void checkErrors() {
  try {
    Scanner("<%# never closed", std::make_shared<ArrayLogger>()).scanTokens();
    check(false, "a scan error");
  } catch (const Error& error) {
    check(dynamic_cast<const VeltoError*>(&error) != nullptr, "an error that is caught by its base");
  }
  static bool wasCalled = false;
  struct Stopped {};
  const FatalHook before = setFatalHook([](std::string_view) {
    wasCalled = true;
    throw Stopped();
  });
  try {
    Value::dictionaryLiteral({{1, 2}, {1, 3}});
  } catch (const Stopped&) {
  }
  setFatalHook(before);
  check(wasCalled, "the hook of fatal stops");
  std::cout << "errors\n";
}

}  // namespace

int main() {
  checkVersion();
  checkValues();
  checkObjects();
  checkFunctions();
  checkStages();
  checkFunctionsOfLibraries();
  checkErrors();
}
