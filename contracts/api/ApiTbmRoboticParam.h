#pragma once

#include <utility>

#include "api/ApiBaseXmlElementWrapper.h"
#include "rt/RTObjVectorFactory.h"
#include "rt/RTTran3D.h"
#include "rw/RWClassicText.h"

// A parameter of a robot: a name, and a value whose kind is that of the class.
class ApiTbmRoboticParam {
 public:
  // The kinds that documents can hold; a host may have others.
  enum Kind : int { Int = 1, Double = 2, Bool = 3, Matrix = 4, String = 6, Vec3d = 10, Xml = 12 };

  virtual ~ApiTbmRoboticParam() = default;
  virtual int kind() const = 0;
  const RWClassicCString& name() const { return name_; }
  void setName(const RWClassicCString& name) { name_ = name; }

 private:
  RWClassicCString name_;
};

template <ApiTbmRoboticParam::Kind kindNumber, class Value>
class ApiTbmRoboticValueParam : public ApiTbmRoboticParam {
 public:
  int kind() const override { return kindNumber; }
  const Value& value() const { return value_; }
  void setValue(Value value) { value_ = std::move(value); }

 private:
  Value value_{};
};

using ApiTbmRoboticIntParam = ApiTbmRoboticValueParam<ApiTbmRoboticParam::Int, int>;
using ApiTbmRoboticDoubleParam = ApiTbmRoboticValueParam<ApiTbmRoboticParam::Double, double>;
using ApiTbmRoboticBoolParam = ApiTbmRoboticValueParam<ApiTbmRoboticParam::Bool, bool>;
using ApiTbmRoboticMatrixParam = ApiTbmRoboticValueParam<ApiTbmRoboticParam::Matrix, RTTran3D>;
using ApiTbmRoboticStringParam = ApiTbmRoboticValueParam<ApiTbmRoboticParam::String, RWClassicWString>;
using ApiTbmRoboticVec3dParam = ApiTbmRoboticValueParam<ApiTbmRoboticParam::Vec3d, RTVec3D>;

class ApiTbmRoboticXmlParam : public ApiTbmRoboticParam {
 public:
  int kind() const override { return Xml; }
  // The element is shared with whoever gave it: who keeps it apart gives a copy.
  const ApiBaseXmlElementWrapper& xml() const { return xml_; }
  void setXml(const ApiBaseXmlElementWrapper& xml) { xml_ = xml; }

 private:
  ApiBaseXmlElementWrapper xml_;
};

// Makes parameters by the number of their kind; the seven above are there from the start.
struct ApiTbmRoboticParamFactory {
  static RTObjVectorFactory<ApiTbmRoboticParam>& the();
};
