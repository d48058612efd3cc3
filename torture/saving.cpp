#include "Torture.h"

namespace torture {
std::vector<Figure> savingFigures() { return {}; }
}  // namespace torture
