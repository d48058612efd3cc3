#pragma once

#include <functional>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "document/ZelXmlPlcFieldRows.h"
#include "wrapper/StudyTest.h"

// Plain fields by their interfaces: what the first and a second write leave, and what is read then.
namespace document_test {

template <class T>
struct Samples;
template <>
struct Samples<bool> {
  static constexpr bool first = true, second = false;
  static std::string text(bool value) { return value ? "1" : "0"; }
};
template <class T>
requires(std::is_integral_v<T> && !std::is_same_v<T, bool>) struct Samples<T> {
  static constexpr T first = static_cast<T>(-7), second = 8;
  static std::string text(T value) { return std::to_string(value); }
};
template <>
struct Samples<double> {
  static constexpr double first = -1.5, second = 2;
  static std::string text(double value) { return value < 0 ? "-1.500000" : "2.000000"; }
};
template <>
struct Samples<std::string> {
  inline static const std::string first = "a \"b\"", second = "c";
  static std::string text(const std::string& value) { return value; }
};
template <>
struct Samples<ApiPmId> {
  inline static const ApiPmId first{"A'1"}, second{};
  static std::string text(const ApiPmId& value) { return value.asString(); }
};
template <>
struct Samples<ApiPmExtendedId> {
  inline static const ApiPmExtendedId first{ApiPmId("A"), ApiKey("k")}, second{ApiPmId("B"), {}};
  static std::string text(const ApiPmExtendedId& value) {
    return value.isPmOnly() ? value.id.asString()
                            : field("BrimID", field("ProcessModelID", value.id.asString()) +
                                                  field("BrimRelativeID", value.key.getSelfAsString()));
  }
};
template <>
struct Samples<ApiPmNameExtendedId> {
  inline static const ApiPmNameExtendedId first{ApiPmId("A"), "n"}, second{ApiPmId("B"), ""};
  static std::string text(const ApiPmNameExtendedId& value) {
    return Samples<ApiPmExtendedId>::text({value.id, ApiKey(value.name)});
  }
};
// Lists gather: what is read of two of them are the entries of both.
template <class T>
struct Samples<RWClassicTValOrderedVector<T>> {
  using List = RWClassicTValOrderedVector<T>;
  inline static const List first{Samples<T>::first}, second{Samples<T>::second, Samples<T>::first};
  static std::string text(const List& values) {
    std::string text;
    for (const T& value : values) text += item(Samples<T>::text(value));
    return text;
  }
};

struct PlainField {
  std::string name;
  std::function<std::string(ZelNode*)> writeTwice;  // what stands there then; else what went wrong
};

// `isDistinct`: reading drops repeated entries.
template <class Face, class Given, class Result>
PlainField plain(const char* name, bool (Face::*set)(Given), bool (Face::*get)(Result&) const,
                 bool isDistinct = false) {
  return {name, [=](ZelNode* node) -> std::string {
            using Value = std::remove_cvref_t<Result>;
            using Sample = Samples<Value>;
            auto* face = zelQuery<Face>(node);
            Value value{};
            if (!face) return "no such interface";
            (face->*get)(value);
            if (!(value == Value{})) return "read before it is written";
            if (!(face->*set)(Sample::first) || !(face->*set)(Sample::second)) return "not written";
            value = {};
            if (!(face->*get)(value)) return "not read";
            Value expected = Sample::first;
            if constexpr (requires { expected.append(Sample::second[0]); }) {
              for (const auto& each : Sample::second)
                if (!isDistinct || !expected.contains(each)) expected.append(each);
            }
            if (!(value == expected)) return "read otherwise";
            return field(name, Sample::text(Sample::first)) + field(name, Sample::text(Sample::second));
          }};
}

// Writes the fields into a node and holds what stands in it then. Rows that setters write are all among them.
inline void expectPlainFields(ZelNode* node, const IXMLDOMNode& group, std::span<const ZelFieldInfo> rows,
                              const std::vector<PlainField>& fields) {
  std::set<std::string_view> names;
  for (const PlainField& each : fields) {
    const std::string before = group.xml();
    const std::string written = each.writeTwice(node);
    names.insert(each.name);
    const std::string after = group.xml();
    const std::string end = "</" + std::string(group.nodeName()) + ">";
    ASSERT_TRUE(after.ends_with(written + end)) << each.name << ": " << written << '\n' << after;
  }
  for (const ZelFieldInfo& row : rows)
    EXPECT_TRUE(row.write != ZelFieldWrite::adds || names.contains(row.name)) << row.name;
}

}  // namespace document_test
