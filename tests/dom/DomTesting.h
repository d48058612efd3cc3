#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "dom/IXMLDOMDocument.h"

// Helpers of the DOM tests.
namespace domtest {

inline IXMLDOMDocument parsed(std::string_view text) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  EXPECT_TRUE(document.loadXML(text, &error)) << error.message() << "\n" << text;
  return document;
}

// The first match, which has to be there.
inline IXMLDOMNode at(const IXMLDOMNode& node, std::string_view xpath) {
  IXMLDOMNode found;
  EXPECT_TRUE(node.selectSingleNode(xpath, found)) << xpath;
  return found;
}

// All elements below `node` in document order, by plain steps.
inline std::vector<IXMLDOMElement> elementsBelow(const IXMLDOMNode& node) {
  std::vector<IXMLDOMElement> all;
  IXMLDOMElement element = node.firstElementChild();
  while (element) {
    all.push_back(element);
    IXMLDOMElement next = element.firstElementChild();
    for (IXMLDOMNode up = element; !next && up && !(up == node); up = up.parentNode())
      next = up.nextElementSibling();
    element = next;
  }
  return all;
}

// Every test of the DOM ends with as many nodes as it began with.
class DomTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(IXMLDOMDocument::livingNodes(), before_) << "nodes leaked"; }

 private:
  std::size_t before_ = IXMLDOMDocument::livingNodes();
};

// A seed that differs from run to run, and is printed: ZELXML_SEED=n runs that one again.
inline unsigned seed() {
  const char* const given = std::getenv("ZELXML_SEED");
  const unsigned value = given != nullptr ? static_cast<unsigned>(std::stoul(given)) : std::random_device{}();
  std::cout << "ZELXML_SEED=" << value << "\n";
  return value;
}

// Runs `work` on a thread with little stack.
inline void onSmallStack(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::size_t{256} << 10), 0);
  pthread_t thread;
  const auto run = [](void* data) -> void* {
    (*static_cast<std::function<void()>*>(data))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace domtest
