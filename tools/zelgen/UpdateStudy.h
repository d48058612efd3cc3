#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Geometry.h"
#include "dom/IXMLDOMDocument.h"
#include "rw/RWTextHash.h"

namespace zelgen {

/// A study as an update sees it: any study, so nothing is taken for granted. What is not as an update needs
/// it (a list that disagrees with another, a layout without numbers) is left alone.
class UpdateStudy {
 public:
  using Index = std::uint32_t;  ///< in `objects`, in document order
  static constexpr Index kNone = 0xFFFFFFFF;
  enum class Kind : std::uint8_t { Other, Parts, Resources };

  struct Object {
    IXMLDOMElement element;
    std::string id;
    Kind compound = Kind::Other;  ///< a compound that is placed; these neither move nor vanish
    Index layout = kNone;         ///< the layout object, if it names this object in `node`
    std::vector<Index> parents;   ///< compounds that hold it, as both sides tell
    std::uint32_t parentItems = 0;
    bool isLeaf = false;    ///< holds nothing and is no compound
    bool isWanted = false;  ///< named by an object other than its parents and its layout
    bool isPlaced = false;  ///< of a layout: both placements can be read
    Index parentLayout = kNone;
    Placement relative, absolute;  ///< of a layout that is placed
  };

  explicit UpdateStudy(const IXMLDOMDocument& study);

  /// kNone when no object has the id.
  Index find(std::string_view id) const;

  std::vector<Object> objects;
  std::vector<Index> compounds[3];  ///< by kind
  std::vector<Index> members;       ///< objects with parents
  std::uint64_t lastNumber = 0;     ///< greatest NodeInfo/Id

 private:
  void add(const IXMLDOMElement& element);
  void place(Object& layout);
  void findCompounds();
  void findMembers();
  void findWanted(Index from, const IXMLDOMElement& element, std::string_view field);

  std::unordered_map<std::string, Index, RWTextHash, std::equal_to<>> index_;
};

/// The texts of the `item` children of a list field; none when there is no such field.
std::vector<std::string> itemsOf(const IXMLDOMNode& object, std::string_view list);
/// The text of the first match; empty when there is none.
std::string textOf(const IXMLDOMNode& object, std::string_view path);

}  // namespace zelgen
