// Made-up data of any size: a model of entities and a table, with their words in one of several scripts.
#include "benchmarks/Model.h"

#include <array>
#include <random>
#include <string_view>

namespace velto::benchmarks {
namespace {

constexpr std::size_t wordCount = 40;
using Words = std::array<std::string_view, wordCount>;

constexpr std::array<Words, 4> words{
    {{"invoice", "customer", "order",   "delivery", "address",  "payment",  "price",    "discount",
      "country", "street",   "number",  "article",  "supplier", "contract", "account",  "balance",
      "budget",  "project",  "task",    "member",   "group",    "folder",   "document", "message",
      "event",   "calendar", "holiday", "ticket",   "journey",  "station",  "weather",  "season",
      "harvest", "garden",   "machine", "factory",  "engine",   "vehicle",  "driver",   "licence"},
     {"счёт",     "клиент", "заказ",     "доставка", "адрес",     "платёж",   "цена",      "скидка",
      "страна",   "улица",  "номер",     "товар",    "поставщик", "договор",  "остаток",   "бюджет",
      "проект",   "задача", "член",      "группа",   "папка",     "документ", "сообщение", "событие",
      "праздник", "билет",  "поездка",   "станция",  "погода",    "сезон",    "урожай",    "сад",
      "машина",   "завод",  "двигатель", "водитель", "права",     "книга",    "полка",     "читатель"},
     {"τιμολόγιο",  "πελάτης",    "παραγγελία", "παράδοση", "διεύθυνση",   "πληρωμή", "τιμή",        "έκπτωση",
      "χώρα",       "οδός",       "αριθμός",    "άρθρο",    "προμηθευτής", "σύμβαση", "λογαριασμός", "υπόλοιπο",
      "έργο",       "εργασία",    "μέλος",      "ομάδα",    "φάκελος",     "έγγραφο", "μήνυμα",      "γεγονός",
      "ημερολόγιο", "αργία",      "εισιτήριο",  "ταξίδι",   "σταθμός",     "καιρός",  "εποχή",       "κήπος",
      "μηχανή",     "εργοστάσιο", "κινητήρας",  "όχημα",    "οδηγός",      "άδεια",   "βιβλίο",      "ράφι"},
     {"請求書",   "顧客",     "注文",   "配達",     "住所", "支払い",     "価格",     "割引",   "国",     "通り",
      "番号",     "品物",     "仕入先", "契約",     "口座", "残高",       "予算",     "計画",   "仕事",   "会員",
      "グループ", "フォルダ", "書類",   "お知らせ", "行事", "カレンダー", "休日",     "切符",   "旅",     "駅",
      "天気",     "季節",     "収穫",   "庭",       "機械", "工場",       "エンジン", "くるま", "運転手", "免許"}}};

class Writer {
 public:
  explicit Writer(Script script) : words_(words[static_cast<std::size_t>(script)]) {}

  void entity() {
    text_ += "{\"name\":";
    name(1 + below(3));
    text_ += ",\"module\":";
    name(1);
    text_ += ",\"doc\":";
    name(7);
    text_ += ",\"abstract\":" + boolean() + ",\"parent\":";
    below(3) == 0 ? name(2) : literal("null");
    text_ += ",\"tags\":[";
    list(below(4), [&] { name(1); });
    text_ += "],\"fields\":[";
    list(5 + below(10), [&] { field(); });
    text_ += "]}";
  }

  void row(std::size_t index) {
    text_ += "[" + std::to_string(index) + ",";
    name(2);
    text_ += "," + std::to_string(below(1'000'000)) + "," + std::to_string(below(10'000)) + ".25,";
    name(1);
    text_ += ",\"rec-" + std::to_string(below(10'000)) + "\"," + std::to_string(below(100)) + ",";
    name(1);
    text_ += "," + std::to_string(below(500)) + ".5,";
    name(1);
    text_ += "]";
  }

  template <typename Write>
  void list(std::size_t count, Write write) {
    for (std::size_t index = 0; index < count; ++index) {
      if (index > 0) text_ += ",";
      write();
    }
  }

  void literal(std::string_view text) { text_ += text; }
  std::string take() { return std::move(text_); }

 private:
  void field() {
    constexpr std::array<std::string_view, 5> types{"text", "number", "flag", "date", "ref"};
    text_ += "{\"name\":";
    name(1 + below(3));
    text_ += ",\"type\":\"" + std::string(types[below(types.size())]) + "\",\"doc\":";
    name(6);
    text_ += ",\"optional\":" + boolean() + ",\"list\":" + boolean() + ",\"max\":" + std::to_string(10 * below(40)) +
             ",\"target\":";
    name(2);
    text_ += "}";
  }

  void name(std::size_t count) {
    text_ += '"';
    for (std::size_t index = 0; index < count; ++index) {
      if (index > 0) text_ += ' ';
      text_ += words_[below(wordCount)];
    }
    text_ += '"';
  }

  std::string boolean() { return below(2) == 0 ? "false" : "true"; }
  std::size_t below(std::size_t limit) { return random_() % limit; }

  const Words& words_;
  std::minstd_rand random_;  // the same sequence everywhere
  std::string text_;
};

}  // namespace

std::string model(Script script, std::size_t entities) {
  Writer writer(script);
  writer.literal("{\"entities\":[");
  writer.list(entities, [&] { writer.entity(); });
  writer.literal("]}");
  return writer.take();
}

std::string table(Script script, std::size_t rows) {
  Writer writer(script);
  std::size_t index = 0;
  writer.literal("{\"rows\":[");
  writer.list(rows, [&] { writer.row(++index); });
  writer.literal("]}");
  return writer.take();
}

}  // namespace velto::benchmarks
