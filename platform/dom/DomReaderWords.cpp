#include "DomReaderWords.h"

#include <libxml/parserInternals.h>

#include "DomText.h"

namespace dom {

namespace {

struct Words {
  int code;
  const char* text;  // "%" stands for the name that the parser tells
};

constexpr Words words[] = {
    {XML_ERR_DOCUMENT_END, "there is text after the document element"},
    {XML_ERR_NO_MEMORY, "there is not enough memory"},
    {XML_ERR_NAME_REQUIRED,
     "there is no name where one has to stand: a \"<\" or \"&\" in a text is written &lt; or &amp;"},
    {XML_ERR_LTSLASH_REQUIRED, "there is no end tag here"},
    {XML_ERR_GT_REQUIRED, "a tag has no \">\" at its end"},
    {XML_ERR_SPACE_REQUIRED, "there is no space before the next attribute, or a tag has no end"},
    {XML_ERR_EQUAL_REQUIRED, "there is no \"=\" where one has to stand"},
    {XML_ERR_ATTRIBUTE_NOT_STARTED, "the value of an attribute is not in quotes"},
    {XML_ERR_ATTRIBUTE_NOT_FINISHED, "the value of an attribute has no closing quote"},
    {XML_ERR_ATTRIBUTE_WITHOUT_VALUE, "the attribute % has no value"},
    {XML_ERR_ATTRIBUTE_REDEFINED, "the attribute % stands twice in one element"},
    {XML_ERR_LT_IN_ATTRIBUTE, "there is a \"<\" in the value of an attribute: it is written &lt;"},
    {XML_ERR_UNDECLARED_ENTITY, "there is no character by the name of &%;"},
    {XML_WAR_UNDECLARED_ENTITY, "there is no character by the name of &%;"},
    {XML_ERR_ENTITYREF_SEMICOL_MISSING,
     "a \"&\" begins no character name that ends with \";\": it is written &amp;"},
    {XML_ERR_ENTITYREF_NO_NAME, "a \"&\" begins no character name: it is written &amp;"},
    {XML_ERR_INVALID_HEX_CHARREF,
     "a character number has other digits than hexadecimal ones, or no \";\" at its end"},
    {XML_ERR_INVALID_DEC_CHARREF,
     "a character number has other digits than decimal ones, or no \";\" at its end"},
    {XML_ERR_INVALID_CHARREF, "there is the number of a character that XML does not allow"},
    {XML_ERR_INVALID_CHAR, "there is a character that XML does not allow"},
    {XML_ERR_MISPLACED_CDATA_END, "there is a \"]]>\" in a text: it is written ]]&gt;"},
    {XML_ERR_CDATA_NOT_FINISHED, "a CDATA section has no \"]]>\" at its end"},
    {XML_ERR_HYPHEN_IN_COMMENT, "there is a \"--\" in a comment"},
    {XML_ERR_COMMENT_NOT_FINISHED, "a comment has no \"-->\" at its end"},
    {XML_ERR_PI_NOT_STARTED, "a processing instruction has no name"},
    {XML_ERR_PI_NOT_FINISHED, "a processing instruction has no \"?>\" at its end"},
    {XML_ERR_RESERVED_XML_NAME, "an XML declaration stands elsewhere than at the very beginning"},
    {XML_ERR_XMLDECL_NOT_STARTED, "there is no XML declaration where one has to stand"},
    {XML_ERR_XMLDECL_NOT_FINISHED, "the XML declaration has no \"?>\" at its end"},
    {XML_ERR_VERSION_MISSING, "the XML declaration tells no version"},
    {XML_ERR_STANDALONE_VALUE, "\"standalone\" of the XML declaration is neither \"yes\" nor \"no\""},
    {XML_ERR_STRING_NOT_STARTED, "a value of the XML declaration is not in quotes"},
    {XML_ERR_STRING_NOT_CLOSED, "a value of the XML declaration has no closing quote"},
    {XML_ERR_ENCODING_NAME, "the encoding of the XML declaration is no name of one"},
    {XML_ERR_UNKNOWN_ENCODING, "the encoding % is not known"},
    {XML_ERR_UNSUPPORTED_ENCODING, "the encoding % is not known"},
    {XML_ERR_INVALID_ENCODING, "there are bytes that are no UTF-8"},
    {XML_I18N_CONV_FAILED, "there are bytes that are no character of the file's encoding"},
    {XML_I18N_EXCESS_HANDLER, "the file is in another encoding than it says"},
    {XML_ERR_NAME_TOO_LONG, "a name is too long"},
};

}  // namespace

std::string plainReason(const xmlError& error) {
  // The parser has one code for a character that is not allowed and for bytes that are none.
  const std::string_view message = error.message != nullptr ? error.message : "";
  const int code =
      message.starts_with("Input is not proper UTF-8") ? int{XML_ERR_INVALID_ENCODING} : error.code;
  for (const Words& known : words) {
    if (known.code != code) continue;
    std::string text = known.text;
    const std::size_t name = text.find('%');
    if (name != std::string::npos) text.replace(name, 1, error.str1 != nullptr ? error.str1 : "");
    return text;
  }
  std::string reason(message.empty() ? "the text is not well-formed" : message);
  while (!reason.empty() && isBlank({&reason.back(), 1})) reason.pop_back();
  return reason;
}

std::string foreignKind(std::string_view head) {
  using namespace std::string_view_literals;
  struct Kind {
    std::string_view begin;
    const char* what;
  };
  constexpr const char* utf32 = "it is in UTF-32, which is not read: write it in UTF-8";
  constexpr Kind kinds[] = {
      {"\x1F\x8B"sv, "it is packed by gzip: unpack it first"},
      {"\xFD"
       "7zXZ\0"sv,
       "it is packed by xz: unpack it first"},
      {"PK\3\4"sv, "it is a zip archive: unpack it first"},
      {"BZh"sv, "it is packed by bzip2: unpack it first"},
      {"\x28\xB5\x2F\xFD"sv, "it is packed by zstd: unpack it first"},
      {"7z\xBC\xAF\x27\x1C"sv, "it is a 7z archive: unpack it first"},
      {"\xFF\xFE\0\0"sv, utf32},
      {"\0\0\xFE\xFF"sv, utf32},
      {"<\0\0\0"sv, utf32},
      {"\0\0\0<"sv, utf32},
  };
  for (const Kind& kind : kinds) {
    if (head.starts_with(kind.begin)) return kind.what;
  }
  return {};
}

}  // namespace dom
