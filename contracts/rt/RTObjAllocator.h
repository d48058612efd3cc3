#pragma once

#include <memory>

// Makes objects of one class behind a base, and copies of itself for a factory to keep.
template <class Base>
class RTBaseObjAllocator {
 public:
  virtual ~RTBaseObjAllocator() = default;
  virtual Base* allocate() const = 0;
  virtual RTBaseObjAllocator* clone() const = 0;
};

template <class Base, class Derived>
class RTObjAllocator : public RTBaseObjAllocator<Base> {
 public:
  Base* allocate() const override { return new Derived; }
  RTObjAllocator* clone() const override { return new RTObjAllocator; }
};
