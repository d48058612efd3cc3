#pragma once

#include <concepts>
#include <memory>
#include <utility>

// Whatever collection of T a caller wants filled: anything with an operation `append(T)`, the ordered vector
// for one. It refers to the collection and keeps no value; pass it by value, and keep it no longer than the
// call that it was passed to.
template <class T>
class RWCollectionRef {
 public:
  template <class Collection>
  requires(!std::same_as<Collection, RWCollectionRef>) && requires(Collection& collection, T value) {
    collection.append(std::move(value));
  }
  RWCollectionRef(Collection& collection)  // NOLINT(google-explicit-constructor)
      : collection_(std::addressof(collection)),
        append_([](void* target, T value) { static_cast<Collection*>(target)->append(std::move(value)); }) {}

  void append(T value) { append_(collection_, std::move(value)); }

 private:
  void* collection_;
  void (*append_)(void* collection, T value);
};
