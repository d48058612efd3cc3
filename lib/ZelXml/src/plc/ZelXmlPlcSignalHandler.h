#pragma once

#include "api/ApiPlcSignalCreationData.h"
#include "dom/IXMLDOMElement.h"
#include "rt/RTAutoPtr.h"
#include "rt/RTObjDictionaryFactory.h"

class ZelXmlNodeHost;

// Writes the record that a signal is made from into an element, and reads it from there: attribute `Id`,
// children `Type` and `name`, and by the kind of signal `Pose` or `PrivName`. New nodes are made by the
// document of the wrapper.
class ZelXmlPlcSignalHandler {
 public:
  virtual ~ZelXmlPlcSignalHandler() = default;

  // What the handler works on.
  void set(const IXMLDOMElement& element, ZelXmlNodeHost* wrapper) {
    element_ = element;
    wrapper_ = wrapper;
  }
  // Adds the record to the element, up to the first step that fails. A record of another kind is refused with
  // nothing written; a null id is written as empty text.
  virtual bool write(const ApiPlcSignalCreationData& data) = 0;
  // A new record; its type text is that of the handler, whatever `Type` says. For an element without a
  // readable `Id` it is null, or an empty record from the handlers of sensors and robots. A `name` that is
  // missing leaves the name empty.
  virtual RTAutoPtr<ApiPlcSignalCreationData> read() const = 0;

 protected:
  bool writeCommon(const ApiPlcSignalCreationData& data);
  // Whether there is an id.
  bool readCommon(ApiPlcSignalCreationData& data) const;
  bool add(std::string_view name, std::string_view text);
  RWClassicCString text(std::string_view name) const;

 private:
  IXMLDOMElement element_;
  ZelXmlNodeHost* wrapper_ = nullptr;
};

// Of a kind without fields of its own.
template <class Data>
class ZelXmlPlcPlainSignalHandler : public ZelXmlPlcSignalHandler {
 public:
  bool write(const ApiPlcSignalCreationData& data) override {
    return dynamic_cast<const Data*>(&data) && writeCommon(data);
  }
  RTAutoPtr<ApiPlcSignalCreationData> read() const override {
    auto data = std::make_unique<Data>();
    if (!readCommon(*data)) return nullptr;
    return data;
  }
};

class ZelXmlPlcKeySignalHandler final : public ZelXmlPlcPlainSignalHandler<ApiPlcKeySignalCreationData> {};
class ZelXmlPlcResourceInputSignalHandler final
    : public ZelXmlPlcPlainSignalHandler<ApiPlcResourceInputSignalCreationData> {};
class ZelXmlPlcResourceOutputSignalHandler final
    : public ZelXmlPlcPlainSignalHandler<ApiPlcResourceOutputSignalCreationData> {};

class ZelXmlPlcDeviceSensorSignalHandler final : public ZelXmlPlcSignalHandler {
 public:
  bool write(const ApiPlcSignalCreationData& data) override;
  RTAutoPtr<ApiPlcSignalCreationData> read() const override;
};

template <class Data>
class ZelXmlPlcRobotSignalHandler : public ZelXmlPlcSignalHandler {
 public:
  bool write(const ApiPlcSignalCreationData& data) override {
    const auto* own = dynamic_cast<const Data*>(&data);
    return own && writeCommon(data) && add("PrivName", own->privateName());
  }
  RTAutoPtr<ApiPlcSignalCreationData> read() const override {
    auto data = std::make_unique<Data>();
    if (readCommon(*data)) data->setPrivateName(text("PrivName"));
    return data;
  }
};

class ZelXmlPlcToRobotSignalHandler final
    : public ZelXmlPlcRobotSignalHandler<ApiPlcToRobotSignalCreationData> {};
class ZelXmlPlcFromRobotSignalHandler final
    : public ZelXmlPlcRobotSignalHandler<ApiPlcFromRobotSignalCreationData> {};

// Makes handlers by the type text of their records. zelXmlInit fills it; it lives until the process ends.
struct ZelXmlPlcSignalHandlerFactory {
  static RTObjDictionaryFactory<ZelXmlPlcSignalHandler>& the();
};
void zelXmlAddPlcSignalHandlers();
