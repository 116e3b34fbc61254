#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace {

using namespace Zor;

template <class TCall>
std::string CastErrorOf(TCall aCall) {
  try {
    aCall();
  } catch (const EJsonCastException& e) {
    return e.what();
  }
  return "none";
}

TEST(JsonTree, ConversionsOfEachKind) {
  const struct {
    TJsonDataValue Value;
    int Int;
    double Float;
    bool Bool;
    const char* Text;
  } cases[] = {
      {{}, 0, 0.0, false, ""},
      {"12.7", 12, 12.7, false, "12.7"},
      {"-5", -5, -5.0, false, "-5"},
      {" 1e3 ", 1000, 1000.0, false, " 1e3 "},
      {3000000000, -1294967296, 3e9, true, "3000000000"},
      {UINT64_MAX, -1, 18446744073709551615.0, true, "18446744073709551615"},
      {-2.9, -2, -2.9, true, "-2.9"},
      {1e30, INT32_MAX, 1e30, true, "1E30"},
      {-1e30, INT32_MIN, -1e30, true, "-1E30"},
      {true, 1, 1.0, true, "true"},
      {false, 0, 0.0, false, "false"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.Value.GetInt(), c.Int) << c.Text;
    EXPECT_EQ(c.Value.GetFloat(), c.Float) << c.Text;
    EXPECT_EQ(c.Value.GetBool(), c.Bool) << c.Text;
    EXPECT_EQ(c.Value.GetString(), c.Text);
  }
  EXPECT_EQ(TJsonDataValue(1e30).GetLong(), INT64_MAX);
  EXPECT_TRUE(TJsonDataValue("true").GetBool());
  EXPECT_FALSE(TJsonDataValue("TRUE").GetBool());
  for (const char* text : {"", "abc", "1x", "nan", "inf", "--1"}) {
    EXPECT_THROW(TJsonDataValue(text).GetInt(), EConvertError) << text;
    EXPECT_THROW(TJsonDataValue(text).GetFloat(), EConvertError) << text;
  }
}

TEST(JsonTree, CastsThatAreRefused) {
  const auto tree = TJsonBaseObject::Parse(R"({"null":null,"array":[],"object":{},"int":1,"text":"x"})");
  TJsonObject& root = *tree->AsObject();
  EXPECT_EQ(CastErrorOf([&] { root.GetInt("null"); }), "Cannot cast Object into Integer");
  EXPECT_EQ(CastErrorOf([&] { root.GetLong("array"); }), "Cannot cast Array into Long");
  EXPECT_EQ(CastErrorOf([&] { root.GetFloat("object"); }), "Cannot cast Object into Float");
  EXPECT_EQ(CastErrorOf([&] { root.GetBool("null"); }), "Cannot cast Object into Bool");
  EXPECT_EQ(CastErrorOf([&] { root.GetString("null"); }), "Cannot cast Object into String");
  EXPECT_EQ(CastErrorOf([&] { root.GetStringView("int"); }), "Cannot cast Integer into String");
  EXPECT_EQ(CastErrorOf([&] { root.GetObject("int"); }), "Cannot cast Integer into Object");
  EXPECT_EQ(CastErrorOf([&] { root.GetArray("text"); }), "Cannot cast String into Array");
  EXPECT_EQ(CastErrorOf([&] { root.GetObject("null"); }), "Cannot cast null into Object");

  JsonSerializationConfig().NullConvertsToValueTypes = true;
  EXPECT_EQ(root.GetInt("null"), 0);
  EXPECT_EQ(root.GetString("null"), "");
  EXPECT_THROW(root.GetInt("object"), EJsonCastException);
  JsonSerializationConfig().NullConvertsToValueTypes = false;
}

TEST(JsonTree, MissingSectionsAppearWhileReading) {
  TJsonObject root;
  EXPECT_EQ(root.GetInt("n"), 0);
  EXPECT_EQ(root.GetString("s"), "");
  EXPECT_EQ(root.FindObject("x"), nullptr);
  EXPECT_EQ(root.ToJSON(), "{}");
  EXPECT_EQ(root.GetObject("x").GetArray("y").Count(), 0);
  EXPECT_EQ(root.ToJSON(), R"({"x":{"y":[]}})");
}

TEST(JsonTree, SettingReplacesAndKeepsOrder) {
  TJsonObject root;
  root.SetInt("b", 1);
  root.SetInt("a longer name", 2);
  root.SetString("b", "a text that does not stand in the value");
  root.SetString("copy", root.GetStringView("b"));
  root.SetObject("a longer name", std::make_unique<TJsonObject>()).SetInt("x", 1);
  EXPECT_EQ(root.ToJSON(), R"({"b":"a text that does not stand in the value","a longer name":{"x":1},)"
                           R"("copy":"a text that does not stand in the value"})");
  root.Remove("b");
  root.Remove("none");
  EXPECT_EQ(root.GetNameView(0), "a longer name");
  root.Delete(1);
  EXPECT_EQ(root.Count(), 1);
  EXPECT_THROW(root.Delete(1), EListError);
  EXPECT_THROW(root.GetItem(-1), EListError);
  EXPECT_THROW(root.SetObject("x", nullptr), EArgumentException);
}

TEST(JsonTree, DoubledNamesAreKeptAndTheFirstIsFound) {
  std::string text = R"({"name":1,"name":2)";
  const auto check = [](const std::string& aText) {
    const auto tree = TJsonBaseObject::Parse(aText);
    EXPECT_EQ(tree->AsObject()->GetInt("name"), 1);
    EXPECT_EQ(tree->ToJSON(), aText);
    tree->AsObject()->Remove("name");
    EXPECT_EQ(tree->AsObject()->GetInt("name"), 2);
  };
  check(text + "}");
  for (int i = 0; i < 100; ++i) text += ",\"key" + std::to_string(i) + "\":0";
  check(text + "}");
}

std::string Numbered(std::string_view aStem, int aNumber) {
  std::string name(aStem);
  name += std::to_string(aNumber);
  return name;
}

TEST(JsonTree, AWalkOfRemovalsKeepsOrderAndNames) {
  std::mt19937 random(1);
  TJsonObject root;
  std::vector<std::pair<std::string, int>> plain;
  const auto any = [&](std::size_t aCount) { return static_cast<int>(random() % aCount); };
  const auto find = [&](const std::string& aName) {
    return std::find_if(plain.begin(), plain.end(),
                        [&](const auto& member) { return member.first == aName; });
  };
  for (int step = 0; step < 20000; ++step) {
    // Names repeat, and the object grows and shrinks beyond the size that has an index.
    const std::string name = Numbered(step % 2 == 0 ? "n" : "a name of some length ", any(300));
    const bool grows = step / 1000 % 2 == 0;
    const int kind = any(grows ? 8 : 16);
    if (kind < 3) {
      root.PutInt(name, step);
      plain.emplace_back(name, step);
    } else if (kind < 5) {
      root.SetInt(name, step);
      if (const auto found = find(name); found != plain.end()) {
        found->second = step;
      } else {
        plain.emplace_back(name, step);
      }
    } else if (kind == 5 && !plain.empty()) {
      const int place = any(plain.size());
      root.Delete(place);
      plain.erase(plain.begin() + place);
    } else {
      const std::string gone =
          plain.empty() ? name : plain[static_cast<std::size_t>(any(plain.size()))].first;
      root.Remove(gone);
      if (const auto found = find(gone); found != plain.end()) plain.erase(found);
    }
    const auto found = find(name);
    ASSERT_EQ(root.Count(), static_cast<int>(plain.size()));
    ASSERT_EQ(root.IndexOf(name), found == plain.end() ? -1 : found - plain.begin()) << step;
    ASSERT_EQ(root.GetInt(name), found == plain.end() ? 0 : found->second) << step;
    if (plain.empty()) continue;
    const int place = any(plain.size());
    const auto& [expected, value] = plain[static_cast<std::size_t>(place)];
    ASSERT_EQ(root.GetName(place), expected) << step;
    ASSERT_EQ(root.GetItem(place).GetInt(), value) << step;
    if (step % 500 != 0) continue;
    TJsonObject copy;
    for (const auto& member : plain) copy.PutInt(member.first, member.second);
    ASSERT_EQ(root.ToJSON(), copy.ToJSON());
  }
}

TEST(JsonTree, ManyNamesAreFound) {
  constexpr int Many = 20000;
  TJsonObject root;
  for (int i = 0; i < Many; ++i) root.SetInt(Numbered("a name of some length ", i), i);
  for (int i = 0; i < Many; ++i) root.SetInt(Numbered("n", i), i);
  EXPECT_EQ(root.Count(), 2 * Many);
  root.Delete(0);
  for (int i = 1; i < Many; ++i) {
    ASSERT_EQ(root.GetInt(Numbered("a name of some length ", i)), i);
    ASSERT_EQ(root.IndexOf(Numbered("n", i)), Many - 1 + i);
  }
  EXPECT_FALSE(root.Contains("a name of some length 0"));
  root.Clear();
  EXPECT_FALSE(root.Contains("n1"));
}

TEST(JsonTree, SubtreesMoveBetweenTrees) {
  const char* text = R"({"items":[{"name":"a text of more than 14 bytes","deep":[[1,2],{}]},5]})";
  auto tree = TJsonBaseObject::Parse(text);
  const std::unique_ptr<TJsonBaseObject> copy = tree->Clone();
  TJsonObject target;
  target.SetObject("moved", tree->AsObject()->GetArray("items").ExtractObject(0)).SetInt("added", 1);
  EXPECT_EQ(tree->ToJSON(), R"({"items":[5]})");
  tree.reset();
  EXPECT_EQ(target.ToJSON(),
            R"({"moved":{"name":"a text of more than 14 bytes","deep":[[1,2],{}],"added":1}})");
  EXPECT_EQ(copy->ToJSON(), text);
  TJsonArray list;
  list.Add(target.ExtractObject("moved"));
  list.AddArray(copy->AsObject()->ExtractArray("items"));
  EXPECT_EQ(list.GetObject(0).Count(), 3);
  EXPECT_EQ(copy->Count(), 0);
}

TEST(JsonTree, ArraysCheckTheirIndexes) {
  TJsonArray items;
  for (int i = 0; i < 10; ++i) items.AddInt(i);
  items.Delete(0);
  items.SetCount(3);
  EXPECT_EQ(items.ToJSON(), "[1,2,3]");
  items.SetCount(5);
  EXPECT_EQ(items.ToJSON(), "[1,2,3,null,null]");
  EXPECT_THROW(items.GetInt(5), EListError);
  EXPECT_THROW(items.GetObject(-1), EListError);
  EXPECT_THROW(items.SetCount(-1), EListError);
  EXPECT_THROW(items.SetCount(INT32_MAX), EListError);
  EXPECT_EQ(items.Count(), 5);
}

TEST(JsonTree, HandlesCreateOnFirstUse) {
  TJsonObject root;
  EXPECT_EQ(root["a"].AsInt(), 0);
  EXPECT_EQ(root.Count(), 0);
  root["a"]["b"] = 5;
  root["a"]["c"].AsArray().AddString("x");
  root["a"]["c"][0] = 2.5;
  root["d"] = nullptr;
  EXPECT_EQ(root.ToJSON(), R"({"a":{"b":5,"c":[2.5]},"d":null})");
  EXPECT_TRUE(root["d"].IsNull());
  EXPECT_EQ(root["a"]["c"][0].AsString(), "2.5");
  EXPECT_THROW(root["a"]["c"][1], EListError);
}

TEST(JsonTree, Paths) {
  const auto tree = TJsonBaseObject::Parse(R"({"a":{"b":[10,{"c":"x"}]},"n":null,"i":1})");
  EXPECT_EQ(tree->GetPath("a.b[0]").AsInt(), 10);
  EXPECT_EQ(tree->GetPath("a.b[1].c").AsString(), "x");
  EXPECT_EQ(tree->GetPath("a.none[3].x").Type(), jdtNone);
  tree->SetPath("p.q.r", 7);
  tree->SetPath("a.b[1].c", "y");
  EXPECT_EQ(tree->ToJSON(), R"({"a":{"b":[10,{"c":"y"}]},"n":null,"i":1,"p":{"q":{"r":7}}})");

  const struct {
    std::string Path;
    std::string Message;
  } cases[] = {
      {"", "Invalid JSON path \"\""},
      {"a..b", "Invalid JSON path \"a..b\""},
      {"a.", "Invalid JSON path \"a.\""},
      {"a.b[x]", "Invalid JSON path \"a.b[x]\""},
      {"a.b[1", "Invalid JSON path \"a.b[1\""},
      {"a.b[0]c", "Invalid JSON path \"a.b[0]c\""},
      {"n.x", "JSON path contains null value (\"n\")"},
      {"a.b[2].c", "JSON path index out of bounds (2) \"a.b[2]\""},
      {"a.b[99999999999999999999]",
       "JSON path index out of bounds (99999999999999999999) \"a.b[99999999999999999999]\""},
      {"i.x", "Cannot cast Integer into Object"},
      {"a.b.c", "Cannot cast Array into Object"},
  };
  for (const auto& c : cases) {
    try {
      tree->GetPath(c.Path);
      ADD_FAILURE() << c.Path;
    } catch (const EJsonException& e) {
      EXPECT_EQ(e.what(), c.Message);
    }
  }
  std::string deep = "a";
  for (int i = 0; i < 1000; ++i) deep += ".a";
  TJsonObject target;
  EXPECT_THROW(target.SetPath(deep, 1), EJsonPathException);
}

}  // namespace
