// A host: it gives a program records, a value, a function and a library, and reads the messages back.
#include <Velto/Velto.h>

#include <iostream>
#include <string>
#include <vector>

using velto::Value;

struct Train {
  std::string destination;
  int platform;
  double minutesLate;
};
BOOST_DESCRIBE_STRUCT(Train, (), (destination, platform, minutesLate))

/// "7:05 pm" for minutes since midnight.
Value clockTime(const Value& minutes) {
  const int total = minutes.number() ? static_cast<int>(*minutes.number()) : 0;
  const std::string minute = std::to_string(total % 60);
  return std::to_string((total / 60 + 11) % 12 + 1) + (minute.size() < 2 ? ":0" : ":") + minute +
         (total < 720 ? " am" : " pm");
}

class StationLibrary final : public velto::Library {
 public:
  void load(velto::Interpreter& interpreter) override {
    const auto isDelayed = [](const Value& minutes) -> Value { return minutes.number() && *minutes.number() >= 5; };
    interpreter.globals().define("isDelayed", velto::makeRef<velto::Function1>("isDelayed", isDelayed));
  }
};

int main(const int count, const char* const* const arguments) {
  if (count != 2) {
    std::cerr << "usage: station FOLDER\n";
    return 2;
  }
  const std::vector<Train> trains = {{"Cranford", 1, 0}, {"Barchester", 2, 12.5}};
  const auto logger = std::make_shared<velto::ArrayLogger>();
  velto::Processor processor(velto::Url(arguments[1]), logger);
  processor.globals["station"] = "Middlemarch";
  processor.globals["now"] = 19 * 60 + 5;
  processor.globals["trains"] = Value::from(trains).value();
  processor.globals["clockTime"] = velto::makeRef<velto::Function1>("clockTime", clockTime);
  processor.libraries.push_back(std::make_shared<StationLibrary>());
  try {
    processor.process("board.velto");
  } catch (const velto::VeltoError&) {
    std::cout << "The board has errors:\n";
  } catch (const velto::Error& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  for (const velto::Message& message : logger->messages) std::cout << message.description().view() << '\n';
}
