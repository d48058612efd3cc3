#pragma once

// The number of a slot, as an argument that tells it from its neighbours.
template <int Number>
struct ZelSlot {};

// The interface `Base` with slots behind its own that have no meaning and are kept for the order of the
// table: numbers First to Last. Each answers false and does nothing: node->reserved(ZelSlot<3>()).
template <class Base, int First, int Last>
class ZelReservedSlots : public ZelReservedSlots<Base, First, Last - 1> {
 public:
  using ZelReservedSlots<Base, First, Last - 1>::reserved;
  virtual bool reserved(ZelSlot<Last>) { return false; }
};

template <class Base, int First>
class ZelReservedSlots<Base, First, First> : public Base {
 public:
  virtual bool reserved(ZelSlot<First>) { return false; }
};

// Where `Base` has such slots already, they stay visible.
template <class Base, int First>
requires requires(Base& base) { base.reserved(ZelSlot<First - 1>()); }
class ZelReservedSlots<Base, First, First> : public Base {
 public:
  using Base::reserved;
  virtual bool reserved(ZelSlot<First>) { return false; }
};
