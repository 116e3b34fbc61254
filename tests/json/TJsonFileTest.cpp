// Reading through arrays: every text gives what the parser of whole texts gives, whatever is in memory at a
// time.
#include <gtest/gtest.h>

#include "kaldrix/json/TJsonFile.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace Zor {
namespace {

/// The arrays of a text, or the message of what is wrong with it.
std::string Whole(const std::string& aText) {
  try {
    const auto root = TJsonBaseObject::Parse(aText);
    std::string told;
    for (int i = 0; root != nullptr && i < root->Count(); ++i) {
      const TJsonArray* rows = root->GetItem(i).AsArray();
      if (rows != nullptr) told += root->AsObject()->GetName(i) + rows->ToJSON();
    }
    return told;
  } catch (const Exception& error) {
    return error.what();
  }
}

std::string ByElements(const std::string& aText, std::size_t aStep) {
  try {
    const TJsonFile file(TFileWindow(aText), aStep);
    std::string told;
    for (const TJsonFile::TArray& array : file.Arrays()) {
      TJsonArray rows;
      for (int i = 0; i < static_cast<int>(array.starts.size()); ++i) rows.Add(file.Element(array, i));
      told += array.name + rows.ToJSON();
    }
    return told;
  } catch (const Exception& error) {
    return error.what();
  }
}

TEST(TJsonFile, GivesWhatTheWholeTextGives) {
  const std::string texts[] = {
      "",
      " \n\t ",
      "{}",
      R"({"a": [], "b": 1, "c": [ 1 , "x]" ,{"y":[{}, "\"}"]}, null,true ] , "d": {"e": [1]}})",
      "\xEF\xBB\xBF\n { \"long name\" : [ { \"k\" : \"\\u00e9\xC3\xA9\" } ,\r\n\r [ ] ] }\n\n",
      R"({"a": [{"b": 1]})",
      R"({"a": [{"b": 1} {"b": 2}]})",
      R"({"a": [1,]})",
      R"({"a": [1 2]})",
      "{\"a\": [1,\n2,\n  {\"b\": tru}]}",
      "{\"a\": [\"x\ny\"]}",
      R"({"a": ["x)",
      R"({"a": [1)",
      R"({"a": [12x, 3]})",
      R"({"a": [01]})",
      R"({"a" [1]})",
      R"({a: [1]})",
      R"({"a": [1]]})",
      R"({"a": [1]} x)",
      R"({"a": [1], })",
      R"({"a": truefalse})",
      R"({"a": [-]})",
      R"({"a": ["\q"]})",
      R"({"a": [1e999]})",
      "{\"a\": [\"\\u\001{xyz\"]}",
      "{\"a\": [" + std::string(600, '[') + "]}",
      "{\"a\": [\"" + std::string(5000, 'x') + "\", " + std::string(300, ' ') + "\r\n\"y\" \r z]}",
      "\xFF\xFE{",
  };
  for (const std::string& text : texts) {
    for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{64}, TFileWindow::Step}) {
      EXPECT_EQ(ByElements(text, step), Whole(text)) << text << " by " << step;
    }
  }
}

TEST(TJsonFile, FindsTheFirstArrayOfAName) {
  const TJsonFile file(TFileWindow(R"({"a": 1, "b": [1], "b": [2, 3]})"));
  ASSERT_NE(file.Find("b"), nullptr);
  EXPECT_EQ(file.Find("b")->starts.size(), 1U);
  EXPECT_EQ(file.Find("a"), nullptr);
  EXPECT_THROW(file.Element(*file.Find("b"), 1), EListError);
  EXPECT_THROW(file.Element(*file.Find("b"), -1), EListError);
}

}  // namespace
}  // namespace Zor
