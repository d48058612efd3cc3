#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "document/ZelXmlFields.h"
#include "document/ZelXmlTransforms.h"

// A plain field is a row: what it is called, where it stands, what it holds, what writing does, and what it
// means. Getter, setter and publication of the node classes read the row, and so does everybody who has to
// know the fields of a study. The rows themselves stand in ZelXmlFieldRows.h.

// Where the field stands: below the element of the node, or below its group `plcInfo`.
enum class ZelFieldPlace : std::uint8_t { element, plcInfo };
// What a write does: nothing at all, it adds a field beside those that are there, it replaces the text of the
// first or makes one, or it replaces where there is one and is refused where there is none.
enum class ZelFieldWrite : std::uint8_t { readOnly, adds, replaces, existing };
// What a write sends to the OUT document: nothing (the group `plcInfo` is sent as a whole, on demand), the
// field, or the whole object.
enum class ZelFieldPublication : std::uint8_t { unpublished, sendsField, sendsObject };
// What a number counts; `words` are texts that people write, which count to the last blank.
enum class ZelFieldUnit : std::uint8_t { none, length, angle, seconds, words };
// What an id that no object has means: nothing (the field names no object), that the study is broken, that an
// edit has left it behind, that the object is elsewhere, or that it depends on more than the field.
enum class ZelFieldReference : std::uint8_t { noReference, firm, leftBehind, elsewhere, structural };
// What a getter answers without the field, for lists alone: any other getter is false.
enum class ZelFieldAbsence : std::uint8_t { emptyList, isFalse };

enum class ZelFieldType : std::uint8_t {
  boolean,
  integer,
  number,
  text,
  id,
  extendedId,
  heldId,  // the id of the one element within the field
  placement,
  translation,
  texts,
  numbers,
  ids,
  nameExtendedIds,
  heldIds,  // the ids of the elements within the items of the field
};
constexpr bool zelFieldIsList(ZelFieldType type) { return type >= ZelFieldType::texts; }

// A row as those see it who read all of them.
struct ZelFieldInfo {
  std::string_view name;  // the element; in a group of its own "group/element"
  std::string_view meaning;
  ZelFieldType type{};
  ZelFieldPlace place = ZelFieldPlace::element;
  ZelFieldWrite write = ZelFieldWrite::readOnly;
  ZelFieldPublication publication = ZelFieldPublication::unpublished;
  ZelFieldUnit unit = ZelFieldUnit::none;
  ZelFieldReference reference = ZelFieldReference::noReference;
  ZelFieldAbsence absence = ZelFieldAbsence::emptyList;

  constexpr void take(ZelFieldPlace word) { place = word; }
  constexpr void take(ZelFieldWrite word) { write = word; }
  constexpr void take(ZelFieldPublication word) { publication = word; }
  constexpr void take(ZelFieldUnit word) { unit = word; }
  constexpr void take(ZelFieldReference word) { reference = word; }
  constexpr void take(ZelFieldAbsence word) { absence = word; }
};

// The words of a row, for the structures that hold rows.
struct ZelFieldWords {
  using enum ZelFieldPlace;
  using enum ZelFieldWrite;
  using enum ZelFieldPublication;
  using enum ZelFieldReference;
  using enum ZelFieldAbsence;
  static constexpr auto length = ZelFieldUnit::length;
  static constexpr auto angle = ZelFieldUnit::angle;
  static constexpr auto seconds = ZelFieldUnit::seconds;
  static constexpr auto words = ZelFieldUnit::words;
};

// How a type of field is read and written: `Value` is what callers see. A type with one text has format and
// parse, any other has read and add.
template <class T>
struct ZelFieldCodec;

// Ids that are no text but the attribute ExternalId of an element within the field; written by making that
// element, never by a setter.
struct ZelHeldId {};
struct ZelHeldIds {};

// A row: ZelField<double>{"robotSetupTime", "time to set the robot up", plcInfo, adds, seconds}. Words that
// are left out have the values of ZelFieldInfo.
template <class T>
struct ZelField : ZelFieldInfo {
  using Value = typename ZelFieldCodec<T>::Value;

  template <class... Words>
  constexpr ZelField(std::string_view fieldName, std::string_view fieldMeaning, Words... words)
      : ZelFieldInfo{.name = fieldName, .meaning = fieldMeaning, .type = ZelFieldCodec<T>::type} {
    if constexpr (ZelFieldCodec<T>::type == ZelFieldType::id || ZelFieldCodec<T>::type == ZelFieldType::ids)
      reference = ZelFieldReference::firm;
    (take(words), ...);
  }
};

// The steps of a row on the element that it stands in, whatever its type.

// The name of the element, without groups ahead of it.
std::string_view zelXmlFieldElement(const ZelFieldInfo& row);
bool zelXmlHasField(const IXMLDOMNode& holder, const ZelFieldInfo& row);
// Writes the field with this text.
bool zelXmlWriteFieldText(const IXMLDOMNode& holder, const ZelFieldInfo& row, std::string_view text,
                          IXMLDOMNode& field);
// Makes room for a new field: `group` is where it goes. A field that it is to replace is gone then.
bool zelXmlClearFieldPlace(const IXMLDOMNode& holder, const ZelFieldInfo& row, IXMLDOMNode& group);

// The codecs.

template <class T, ZelFieldType Type, auto Read>
struct ZelFieldTextCodec {
  using Value = T;
  static constexpr ZelFieldType type = Type;
  static bool read(const IXMLDOMNode& holder, std::string_view name, T& value) {
    return Read(holder, name, value);
  }
};

template <>
struct ZelFieldCodec<bool> : ZelFieldTextCodec<bool, ZelFieldType::boolean, zelXmlGetBool> {
  static std::string_view format(bool value) { return value ? "1" : "0"; }
};

template <>
struct ZelFieldCodec<int> : ZelFieldTextCodec<int, ZelFieldType::integer, zelXmlGetInt> {
  static std::string format(int value) { return std::to_string(value); }
};

// Cut to 32 bits, as it is read.
template <>
struct ZelFieldCodec<std::uint32_t> {
  using Value = std::uint32_t;
  static constexpr ZelFieldType type = ZelFieldType::integer;
  static bool read(const IXMLDOMNode& holder, std::string_view name, std::uint32_t& value);
  static std::string format(std::uint32_t value) { return std::to_string(value); }
};

template <class T>
requires std::is_enum_v<T>
struct ZelFieldCodec<T> {
  using Value = T;
  static constexpr ZelFieldType type = ZelFieldType::integer;
  static bool read(const IXMLDOMNode& holder, std::string_view name, T& value) {
    int number = 0;
    if (!zelXmlGetInt(holder, name, number)) return false;
    value = static_cast<T>(number);
    return true;
  }
  static std::string format(T value) { return std::to_string(static_cast<int>(value)); }
};

// A number beyond 32 bits is none.
template <>
struct ZelFieldCodec<ApiPmInternalId> {
  using Value = ApiPmInternalId;
  static constexpr ZelFieldType type = ZelFieldType::integer;
  static bool read(const IXMLDOMNode& holder, std::string_view name, ApiPmInternalId& value);
  static std::string format(ApiPmInternalId value) { return std::to_string(value.value); }
};

template <>
struct ZelFieldCodec<double> : ZelFieldTextCodec<double, ZelFieldType::number, zelXmlGetDouble> {
  static std::string format(double value) { return zelXmlFormatDouble(value); }
};

template <>
struct ZelFieldCodec<std::string> : ZelFieldTextCodec<std::string, ZelFieldType::text, zelXmlGetString> {
  static std::string_view format(const std::string& value) { return value; }
};

template <>
struct ZelFieldCodec<ApiPmId> {
  using Value = ApiPmId;
  static constexpr ZelFieldType type = ZelFieldType::id;
  static bool read(const IXMLDOMNode& holder, std::string_view name, ApiPmId& value);
  static std::string_view format(const ApiPmId& value) { return value.text(); }
};

// Fields of several elements.
template <class T, ZelFieldType Type, auto Read, auto Add>
struct ZelFieldGroupCodec : ZelFieldTextCodec<T, Type, Read> {
  static bool add(const IXMLDOMNode& group, std::string_view name, const T& value) {
    if constexpr (zelFieldIsList(Type)) {
      return Add(group, name, value, false);
    } else {
      return Add(group, name, value);
    }
  }
};

template <>
struct ZelFieldCodec<ZelXmlList<std::string>>
    : ZelFieldGroupCodec<ZelXmlList<std::string>, ZelFieldType::texts, zelXmlGetTextList, zelXmlAddTextList> {
};
template <>
struct ZelFieldCodec<ZelXmlList<double>> : ZelFieldGroupCodec<ZelXmlList<double>, ZelFieldType::numbers,
                                                              zelXmlGetDoubleList, zelXmlAddDoubleList> {};
template <>
struct ZelFieldCodec<ApiPmIdList>
    : ZelFieldGroupCodec<ApiPmIdList, ZelFieldType::ids, zelXmlGetIdList, zelXmlAddIdList> {};
template <>
struct ZelFieldCodec<ZelXmlList<ApiPmNameExtendedId>>
    : ZelFieldGroupCodec<ZelXmlList<ApiPmNameExtendedId>, ZelFieldType::nameExtendedIds,
                         zelXmlGetNameExtendedIdList, zelXmlAddNameExtendedIdList> {};
template <>
struct ZelFieldCodec<RTTran3D>
    : ZelFieldGroupCodec<RTTran3D, ZelFieldType::placement, zelXmlGetTransform, zelXmlAddTransform> {};
template <>
struct ZelFieldCodec<RTVec3D>
    : ZelFieldGroupCodec<RTVec3D, ZelFieldType::translation, zelXmlGetTranslation, zelXmlAddTranslation> {};

template <>
struct ZelFieldCodec<ApiPmExtendedId> {
  using Value = ApiPmExtendedId;
  static constexpr ZelFieldType type = ZelFieldType::extendedId;
  static bool read(const IXMLDOMNode& holder, std::string_view name, ApiPmExtendedId& value);
  static bool add(const IXMLDOMNode& group, std::string_view name, const ApiPmExtendedId& value);
};

template <>
struct ZelFieldCodec<ZelHeldId> : ZelFieldTextCodec<ApiPmId, ZelFieldType::heldId, zelXmlGetNestedRef> {};
template <>
struct ZelFieldCodec<ZelHeldIds>
    : ZelFieldTextCodec<ApiPmIdList, ZelFieldType::heldIds, zelXmlGetNestedRefList> {};

// Reads a field of the element; false, and `value` untouched, without it. Lists are appended to, and without
// the field they are true and empty unless the row says otherwise.
template <class T>
bool zelXmlReadField(const IXMLDOMNode& holder, const ZelField<T>& row, typename ZelField<T>::Value& value) {
  return (row.absence == ZelFieldAbsence::emptyList || zelXmlHasField(holder, row)) &&
         ZelFieldCodec<T>::read(holder, row.name, value);
}

// Writes a field of the element, as the row says; `field` is the element that was written (of several, the
// first for a field of several elements). False, and nothing changed, for a number that is not finite. A
// field made for a text that no document takes goes again; of any other type it stays as far as it has come.
template <class T>
bool zelXmlWriteField(const IXMLDOMNode& holder, const ZelField<T>& row,
                      const typename ZelField<T>::Value& value, IXMLDOMNode& field) {
  if constexpr (std::is_same_v<T, double>) {
    if (!std::isfinite(value)) return false;
  }
  if constexpr (requires { ZelFieldCodec<T>::format(value); }) {
    return zelXmlWriteFieldText(holder, row, ZelFieldCodec<T>::format(value), field);
  } else {
    IXMLDOMNode group;
    if (!zelXmlClearFieldPlace(holder, row, group) ||
        !ZelFieldCodec<T>::add(group, zelXmlFieldElement(row), value)) {
      return false;
    }
    return zelXmlSelectChild(group, zelXmlFieldElement(row), field);
  }
}
