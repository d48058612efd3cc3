#pragma once

#include <memory>

template <class T>
using RTAutoPtr = std::unique_ptr<T>;
