#include "Torture.h"

namespace torture {
std::vector<Figure> idFigures() { return {}; }
}  // namespace torture
