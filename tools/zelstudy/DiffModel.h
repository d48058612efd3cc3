#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "api/ApiPmId.h"
#include "dom/IXMLDOMDocument.h"
#include "rw/RWPagedArray.h"
#include "rw/RWTextHash.h"
#include "zelstudy/DiffFields.h"

namespace zelstudy {

// The objects of two studies, found in each other by their ids. References lead to the first object of an id.
//
// Of several objects with one id, those with equal content belong together, and the others in their order.
// Objects without id ("NULL" is none) belong together when their content is equal, and otherwise not.
class DiffModel {
 public:
  using Index = std::uint32_t;
  static constexpr Index none = 0xFFFFFFFF;
  enum Side : std::uint8_t { earlier, later };

  struct Pair {
    std::array<IXMLDOMElement, 2> versions;
    std::string_view id;
    const IXMLDOMElement& before() const { return versions[earlier]; }
    const IXMLDOMElement& after() const { return versions[later]; }
  };

  DiffModel(const IXMLDOMDocument& before, const IXMLDOMDocument& after);

  const IXMLDOMDocument& document(Side side) const { return sides_[side].document; }
  const std::vector<IXMLDOMElement>& objects(Side side) const { return sides_[side].objects; }
  const std::vector<Pair>& pairs() const { return pairs_; }  // in the order of the earlier document
  // Objects that the other document lacks, in document order.
  const std::vector<Index>& alone(Side side) const { return sides_[side].alone; }

  // Null when no object has the id.
  IXMLDOMElement find(Side side, std::string_view id) const;
  Index findPair(std::string_view id) const;
  // Whether an object names another as the one that it belongs to: in `parents`, `parent`, `parentPrototype`,
  // or as a label in `node`.
  bool belongsTo(const IXMLDOMElement& object, std::string_view id) { return owners(object).contains(id); }
  bool belongsToNone(const IXMLDOMElement& object) { return owners(object).empty(); }

 private:
  using Texts = std::unordered_set<std::string, RWTextHash, std::equal_to<>>;

  struct OneSide {
    IXMLDOMDocument document;
    std::vector<IXMLDOMElement> objects;
    // By the number of an id, the objects that have it, in document order; under 0 those without id.
    struct Same {
      Index first = none;
      Index last = none;
    };
    std::vector<ApiPmId> ids;  // of each object
    RWPagedArray<Same> byId;
    std::vector<Index> nextSame;  // of each object
    std::vector<Index> alone;

    Same same(const ApiPmId& id) const {
      const Same* found = byId.find(id.number());
      return found ? *found : Same();
    }
    std::vector<Index> all(Index first) const {
      std::vector<Index> objects;
      for (; first != none; first = nextSame[first]) objects.push_back(first);
      return objects;
    }
  };

  // Most objects follow the one that they followed in `other`, so that few ids are looked up.
  static void collect(OneSide& side, const OneSide& other);
  void match();
  void matchMany(const std::vector<Index>& before, const std::vector<Index>& after, bool haveId,
                 std::vector<Index>& partners);
  const Texts& owners(const IXMLDOMElement& object);

  std::array<OneSide, 2> sides_;
  std::vector<Pair> pairs_;
  RWPagedArray<Index> firstPair_;  // by the number of an id, counted from 1
  std::unordered_map<const void*, Texts> owners_;
};

// Text of the first child of this name; empty when there is none.
std::string childText(const IXMLDOMElement& element, std::string_view name);
// Texts of the items of a list.
std::vector<std::string> itemTexts(const IXMLDOMElement& element, std::string_view list);

}  // namespace zelstudy
