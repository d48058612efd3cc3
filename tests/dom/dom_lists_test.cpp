#include <algorithm>

#include "DomTesting.h"

using namespace domtest;

namespace {

using DomLists = DomTest;

// Children of a long list are found by text and by place as a walk finds them, through any changes.
TEST_F(DomLists, LongListsAnswerAsAWalkDoes) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::string text = "<list>";
  for (int i = 0; i < 100; ++i) text += "<item>" + std::to_string(i) + "</item>";
  const IXMLDOMDocument document = parsed(text + "</list>");
  const IXMLDOMNode list = document.documentElement();
  std::vector<IXMLDOMNode> items;
  for (const IXMLDOMNode& item : list.childNodes()) items.push_back(item);
  for (int step = 0; step < 3000; ++step) {
    const std::size_t any = items.empty() ? 0 : random() % items.size();
    const auto kind = random() % 40;
    if (kind < 15 || items.empty()) {
      IXMLDOMElement item = document.createElement("item");
      ASSERT_TRUE(item.putText(std::to_string(random() % (kind == 0 ? 50 : 1000000))));
      ASSERT_TRUE(list.appendChild(item));
      items.push_back(item);
    } else if (kind < 31) {
      ASSERT_TRUE(list.removeChild(items[any]));
      items.erase(items.begin() + static_cast<std::ptrdiff_t>(any));
    } else if (kind < 33) {
      ASSERT_TRUE(list.appendChild(items[any]));  // to the end
      std::rotate(items.begin() + static_cast<std::ptrdiff_t>(any),
                  items.begin() + static_cast<std::ptrdiff_t>(any) + 1, items.end());
    } else if (kind < 34) {
      ASSERT_TRUE(items[any].putText(std::to_string(random() % 1000000)));
    } else if (kind < 36) {
      ASSERT_TRUE(list.appendChild(document.createElement("other")));
    }
    const std::string wanted =
        items.empty() || random() % 4 == 0 ? "none" : items[random() % items.size()].text();
    std::size_t place = 0;
    while (place < items.size() && items[place].text() != wanted) ++place;
    IXMLDOMNode found;
    long index = -1;
    ASSERT_EQ(list.findChild("item", wanted, found, index), place < items.size()) << step;
    if (found) {
      ASSERT_TRUE(found == items[place]) << step;
      ASSERT_EQ(index, static_cast<long>(place)) << step;
    }
    const std::size_t asked = random() % (items.size() + 2);
    IXMLDOMNode at;
    ASSERT_EQ(list.childAt("item", static_cast<long>(asked), at), asked < items.size()) << step;
    ASSERT_TRUE(!at || at == items[asked]) << step;
  }
}

// What was known of a list does not speak for one that comes to stand at the same address.
TEST_F(DomLists, AListOfAnotherDocumentIsAnotherList) {
  for (const char* prefix : {"a", "b", "c"}) {
    std::string text = "<list>";
    for (int i = 0; i < 100; ++i) text += "<item>" + std::string(prefix) + std::to_string(i) + "</item>";
    const IXMLDOMDocument document = parsed(text + "</list>");
    IXMLDOMNode found;
    long index = 0;
    EXPECT_TRUE(document.documentElement().findChild("item", std::string(prefix) + "90", found, index));
    EXPECT_EQ(index, 90);
  }
}

}  // namespace
