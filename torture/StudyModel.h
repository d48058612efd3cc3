#pragma once

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace torture {

// A plain account of a study under edit: what each operation does to objects, lists, layouts, roots and the
// change stream, in standard containers and whole numbers. It knows nothing of the library; objects are not
// rotated, so that placements are sums.
class StudyModel {
 public:
  using Point = std::array<long, 3>;

  enum Type : int { study = 0, part = 1, resource = 2, compoundPart = 3, compoundResource = 4, label = 10 };

  explicit StudyModel(bool forgets) : forgets_(forgets) {
    objects_[studyId].type = study;
    objects_[studyId].name = "Line";
    order_.push_back(studyId);
    roots_.push_back(studyId);
  }

  static constexpr const char* studyId = "S";

  // The ids that have a node, in the order of their making.
  const std::vector<std::string>& ids() const { return order_; }
  bool isCollection(const std::string& id) const {
    const int type = objects_.at(id).type;
    return type == compoundPart || type == compoundResource;
  }
  int typeOf(const std::string& id) const { return objects_.at(id).type; }
  bool isShown(const std::string& id) const { return shown_.count(id) != 0; }
  const std::vector<std::string>& labelsOf(const std::string& id) const { return objects_.at(id).labels; }

  // Each answers what the operation has to answer.
  void createRoot(int type, const std::string& id);
  void createChild(const std::string& parent, int type, const std::string& id);
  bool moveChild(const std::string& parent, const std::string& id);
  bool show(const std::string& id);  // moves it into the study
  bool hide(const std::string& id);
  bool makeRoot(const std::string& id);
  bool remove(const std::string& id);
  bool setName(const std::string& id, const std::string& name);
  bool setDescription(const std::string& id, const std::string& text);
  bool place(const std::string& id, const Point& at);
  void addLabel(const std::string& id, const std::string& label, const std::string& text);
  void reorder(const std::string& first);

  // All of it, a line per fact.
  std::map<std::string, std::string> picture() const;
  // As `picture` of the study when it has been saved and opened: without the stream, the order of the roots,
  // and parents that are gone.
  std::map<std::string, std::string> reopened() const;

 private:
  struct Object {
    int type = part;
    std::string name, comment, assigned;
    std::vector<std::string> parents, children, labels;
    bool isNamed = false;  // in the stream
    bool hasComment = false;
  };
  // By the id of the object that it places; it may outlive that one.
  struct Layout {
    Point relative{}, absolute{};
    std::string parent;
    std::vector<std::string> children;
  };

  bool isBelow(const std::string& collection, const std::string& id) const;
  void detach(const std::string& id);
  void attach(const std::string& parent, const std::string& id);
  void releaseOutlivedLinks(const std::string& lower, const std::string& upper);
  void carry(const std::string& owner);
  void forgetNode(const std::string& id);
  void publish(const std::string& id) { updated_.insert(id); }
  void publishLayout(const std::string& owner) { updated_.insert("layout of " + owner); }

  bool forgets_;
  std::map<std::string, Object> objects_;  // elements
  std::vector<std::string> order_;         // nodes
  std::map<std::string, Layout> layouts_;
  std::map<std::string, std::string> relevant_;
  std::vector<std::string> roots_, shownOrder_;
  std::map<std::string, Point> shown_;
  std::set<std::string> updated_, deleted_;
};

}  // namespace torture
