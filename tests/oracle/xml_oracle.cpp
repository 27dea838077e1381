// Compares the reading of XML with libxml2, as an independent oracle:
//   xml_oracle MUTATIONS [PATH...]
// All files below the paths that may be XML, and so many changed forms of each smaller one: the same tree, or refused
// alike. Where both differ by choice, the reason is counted (see ReasonOf). Exit status 1 for any other difference.
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "services/Xml.h"

namespace {

using namespace vx;

// A tree as a text: what stands in it, in order, attributes by their names; texts that stand side by side are one.
class TDump {
 public:
  void Put(char Kind, const std::string& Name, const std::string& Value) {
    const bool isText = Kind == 't';
    if (isText && Value.empty()) return;
    if (!isText || !FIsText) (FText += Kind) += Name + "\1";
    FText += Value;
    FIsText = isText;
  }
  void PutAttributes(std::vector<std::pair<std::string, std::string>> Attributes) {
    std::sort(Attributes.begin(), Attributes.end());
    for (const auto& [name, value] : Attributes) FText += "\2" + name + "\3" + value;
  }
  void End() { Put('/', "", ""); }
  const std::string& Text() const { return FText; }

 private:
  std::string FText;
  bool FIsText = false;
};

std::string Utf8(std::u16string_view Text) { return String(Text).ToUtf8(); }
std::string Utf8(const xmlChar* Text) { return Text == nullptr ? "" : reinterpret_cast<const char*>(Text); }

void DumpOurs(const TXmlNode& Node, TDump& Dump) {
  for (const TXmlNode& child : Node.Children()) {
    Dump.Put("-etckid"[child.GetKind()], Utf8(child.GetName()),
             child.GetKind() == xnDoctype ? "" : Utf8(child.GetValue()));
    if (!child.IsElement()) continue;
    std::vector<std::pair<std::string, std::string>> attributes;
    for (const TXmlAttr& attr : child.Attributes())
      attributes.emplace_back(Utf8(attr.GetName()), Utf8(attr.GetValue()));
    Dump.PutAttributes(attributes);
    DumpOurs(child, Dump);
    Dump.End();
  }
}

std::string NameOf(const xmlNs* Space, const xmlChar* Name) {
  return (Space != nullptr && Space->prefix != nullptr ? Utf8(Space->prefix) + ":" : "") + Utf8(Name);
}

void DumpTheirs(const xmlNode* First, TDump& Dump) {
  for (const xmlNode* node = First; node != nullptr; node = node->next) {
    const std::string value = Utf8(node->content);
    switch (node->type) {
      case XML_TEXT_NODE:
        Dump.Put('t', "", value);
        break;
      case XML_CDATA_SECTION_NODE:
        Dump.Put('c', "", value);
        break;
      case XML_COMMENT_NODE:
        Dump.Put('k', "", value);
        break;
      case XML_PI_NODE:
        Dump.Put('i', Utf8(node->name), value);
        break;
      case XML_DTD_NODE:
        Dump.Put('d', Utf8(node->name), "");
        break;
      case XML_ELEMENT_NODE: {
        Dump.Put('e', NameOf(node->ns, node->name), "");
        std::vector<std::pair<std::string, std::string>> attributes;
        for (const xmlNs* space = node->nsDef; space != nullptr; space = space->next) {
          attributes.emplace_back(space->prefix == nullptr ? "xmlns" : "xmlns:" + Utf8(space->prefix),
                                  Utf8(space->href));
        }
        for (const xmlAttr* attr = node->properties; attr != nullptr; attr = attr->next) {
          xmlChar* text = xmlNodeListGetString(node->doc, attr->children, 1);
          attributes.emplace_back(NameOf(attr->ns, attr->name), Utf8(text));
          xmlFree(text);
        }
        Dump.PutAttributes(attributes);
        DumpTheirs(node->children, Dump);
        Dump.End();
        break;
      }
      default:
        Dump.Put('?', std::to_string(node->type), value);
    }
  }
}

struct TTheirs {
  bool IsGood = false, HasSpaceFault = false;
  int Error = 0, Line = 0;
  std::string Tree;
};

void NoteFirst(void* Target, const xmlError* Error) {
  auto& theirs = *static_cast<TTheirs*>(Target);
  if (theirs.Error != 0 || Error->level != XML_ERR_FATAL) return;
  theirs.Error = Error->code;
  theirs.Line = Error->line;
}

TTheirs ReadTheirs(const std::string& Bytes) {
  TTheirs theirs;
  xmlParserCtxt* context = xmlNewParserCtxt();
  xmlSetStructuredErrorFunc(&theirs, [](void* target, xmlError* error) { NoteFirst(target, error); });
  xmlDoc* doc = xmlCtxtReadMemory(context, Bytes.data(), static_cast<int>(Bytes.size()), nullptr, nullptr,
                                  XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_DTDATTR);
  theirs.IsGood = doc != nullptr && context->wellFormed != 0;
  theirs.HasSpaceFault = context->nsWellFormed == 0;
  if (theirs.IsGood) {
    TDump dump;
    DumpTheirs(doc->children, dump);
    theirs.Tree = dump.Text();
  }
  xmlFreeDoc(doc);
  xmlFreeParserCtxt(context);
  return theirs;
}

bool Has(const std::string& Bytes, const char* Word) { return Bytes.find(Word) != Bytes.npos; }

// Why both may differ; nullptr if they must not.
const char* ReasonOf(const std::string& Bytes, const TXmlFault& Fault, const TTheirs& Theirs) {
  switch (Fault.Kind) {
    case xfEncoding:
      return "only the encodings that are told are read";
    case xfEncodingMismatch:
      return "a file that contradicts its mark is refused";
    case xfUnknownEntity:
      return "an entity that may be declared elsewhere is refused, not left out";
    case xfExternalEntity:
      return "an external entity is refused, not left out";
    case xfEntityMarkup:
      return "entities with markup are refused";
    case xfParameterEntity:
      return "parameter entities are refused";
    case xfLimit:
      return "the limit of what entities expand to is another one";
    case xfExpected:
      if (!Theirs.IsGood) return nullptr;
      if (Fault.Detail == u" " && Has(Bytes, "<!DOCTYPE")) return "a blank has to stand behind <!DOCTYPE";
      return Fault.Detail.view().starts_with(u"version=") ? "a version needs a digit behind the point" : nullptr;
    case xfOutside:
      return Theirs.IsGood && Has(Bytes, ">[") ? "nothing follows the > of a document type" : nullptr;
    case xfName:
      return Theirs.IsGood && Has(Bytes, "NDATA") ? "a name has to stand behind NDATA" : nullptr;
    case xfNone:
      break;
    default:
      return nullptr;
  }
  if (Theirs.Error == XML_ERR_URI_FRAGMENT) return "addresses of what is not read are not looked at";
  if (Theirs.IsGood && Theirs.HasSpaceFault) return "prefixes that are not declared stay as they are written";
  if (!Theirs.IsGood && (Has(Bytes, "<!ELEMENT") || Has(Bytes, "<!NOTATION"))) {
    return "what only who validates needs is not looked at";
  }
  if (!Theirs.IsGood && (Has(Bytes, "windows-1252") || Has(Bytes, "Windows-1252"))) {
    return "the five free bytes of windows-1252 are control characters";
  }
  return nullptr;
}

struct TTotals {
  int Files = 0, Good = 0, Refused = 0, SameLine = 0, Differences = 0;
  std::map<std::string, int> Reasons;
};

void Compare(const std::string& Name, const std::string& Bytes, TTotals& Totals) {
  ++Totals.Files;
  TXmlLimits limits;
  limits.Depth = 256;
  TXmlDocument document;
  const TXmlFault fault = ReadXml(document, std::string_view(Bytes), limits);
  const TTheirs theirs = ReadTheirs(Bytes);
  TDump ours;
  if (!fault) DumpOurs(document.GetTop(), ours);
  if (fault && !theirs.IsGood) {
    ++Totals.Refused;
    Totals.SameLine += fault.Line == theirs.Line;
  } else if (!fault && theirs.IsGood && ours.Text() == theirs.Tree) {
    ++Totals.Good;
  } else if (const char* reason = ReasonOf(Bytes, fault, theirs)) {
    ++Totals.Reasons[reason];
  } else if (++Totals.Differences <= 20) {
    std::printf("%s: %s, libxml2 %d in line %d\n", Name.c_str(),
                fault           ? fault.GetText().ToUtf8().c_str()
                : theirs.IsGood ? "another tree"
                                : "read",
                theirs.Error, theirs.Line);
    std::ofstream("xml_difference_" + std::to_string(Totals.Differences) + ".xml") << Bytes;
  }
}

std::string Mutated(std::string Bytes, std::mt19937& Random) {
  static const std::string kPieces[] = {"<",       ">",     "&",
                                        ";",       "\"",    "'",
                                        "/",       "!",     "-",
                                        "--",      "[",     "]",
                                        "]]>",     "?",     "?>",
                                        "=",       " ",     "\n",
                                        "\r",      "\r\n",  "\t",
                                        "&lt;",    "&#65;", "&#",
                                        "<!--",    "-->",   "<![CDATA[",
                                        "<a>",     "</a>",  "<a/>",
                                        "x",       ":",     "\xC3\xA4",
                                        "\x80",    "\xFF",  "\x01",
                                        "<?p q?>", "%",     "<!DOCTYPE a [",
                                        "xmlns"};
  const auto below = [&](size_t limit) { return limit == 0 ? 0 : Random() % limit; };
  for (size_t changes = 1 + below(2); changes > 0; --changes) {
    // Half of them at places where something begins or ends.
    size_t at = below(Bytes.size() + 1);
    if (below(2) == 0) at = std::min(Bytes.find_first_of("<>&\"'/=;-]", at), Bytes.size());
    const size_t count = std::min(below(4) == 0 ? below(40) : 1, Bytes.size() - at);
    const std::string cut = Bytes.substr(at, count);
    switch (below(4)) {
      case 0:
        Bytes.erase(at, count);
        break;
      case 1:
        Bytes.insert(at, kPieces[below(std::size(kPieces))]);
        break;
      case 2:
        Bytes.replace(at, count, kPieces[below(std::size(kPieces))]);
        break;
      default:
        Bytes.insert(below(Bytes.size() + 1), cut);
    }
  }
  return Bytes;
}

// What files seldom hold.
const char* const kDocuments[] = {
    "<?xml version='1.0' standalone='yes'?><!DOCTYPE a PUBLIC '-//X' \"x.dtd\" [<!ENTITY e '&f;&#38;#60;'>"
    "<!ENTITY f \"x\ty&g;\"><!ENTITY g 'g]]'><!ATTLIST a t NMTOKENS #IMPLIED u (x|y) ' &f; ' v CDATA #FIXED '1'>"
    "<!--c--><?p?>]><a t='  p&#10; q ' w='&e;'>&e;<b/>&f;&lt;</a>",
    "<!DOCTYPE a SYSTEM 's' [<!ENTITY % p 'x'><!ENTITY l '&m;'><!ENTITY m '&n;&n;'><!ENTITY n 'n&quot;'>"
    "<!ENTITY x SYSTEM 'x'><!ENTITY u PUBLIC 'p' 'u' NDATA n><!ATTLIST a b ID #REQUIRED c NOTATION (n) #IMPLIED>"
    "<!ATTLIST b d CDATA '&m;\n&#10;'>]>\n<a b=' 1 ' c='n'><b/><b d='&m;'/>&l;<![CDATA[&l;]]>]]&gt;</a><!--e--><?q r "
    "?>",
    "<?xml version='1.0' encoding='ISO-8859-1'?><\xE4 xmlns='u' xmlns:p='v' p:\xF6='\xDF\n&#xDF;'>\xA0&#8364;</\xE4>",
    "<?xml version='1.0' encoding='windows-1252'?><a>\x80\xDF</a>", "\xEF\xBB\xBF<a b='1'>\xE2\x82\xAC\r\n\r</a>"};

bool MayBeXml(const std::filesystem::path& Path) {
  static const char* const kExtensions[] = {".xml", ".svg",  ".xsl", ".ui",    ".rng", ".xsd",  ".docbook",
                                            ".gir", ".page", ".mml", ".xhtml", ".dtd", ".xslt", ".ent"};
  return std::find(std::begin(kExtensions), std::end(kExtensions), Path.extension()) != std::end(kExtensions);
}

int Run(int Mutations, const std::vector<std::string>& Paths) {
  constexpr size_t kSmall = 30000;
  std::mt19937 random(1);
  TTotals real, changed;
  for (const std::string document : kDocuments) {
    Compare(document, document, real);
    for (int i = 0; i < 1000 * Mutations; ++i) Compare("a document, changed", Mutated(document, random), changed);
  }
  for (const std::string& path : Paths) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
      if (entry.is_regular_file() && MayBeXml(entry.path())) names.push_back(entry.path());
    }
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) {
      std::ifstream file(name, std::ios::binary);
      const std::string bytes((std::istreambuf_iterator<char>(file)), {});
      Compare(name, bytes, real);
      for (int i = 0; i < Mutations && bytes.size() < kSmall; ++i)
        Compare(name + ", changed", Mutated(bytes, random), changed);
    }
  }
  for (const auto& [what, totals] : {std::pair("files", &real), std::pair("changed files", &changed)}) {
    std::printf("%s: %d, the same tree %d, refused alike %d (in the same line %d), differences %d\n", what,
                totals->Files, totals->Good, totals->Refused, totals->SameLine, totals->Differences);
    for (const auto& [reason, count] : totals->Reasons) std::printf("  %6d by choice: %s\n", count, reason.c_str());
  }
  return real.Differences + changed.Differences > 0 || real.Good == 0;
}

}  // namespace

int main(int Arguments, char** Argument) {
  xmlSetExternalEntityLoader([](const char*, const char*, xmlParserCtxt*) -> xmlParserInput* { return nullptr; });
  if (Arguments < 3) return std::fprintf(stderr, "usage: xml_oracle MUTATIONS PATH...\n"), 2;
  return Run(std::atoi(Argument[1]), {Argument + 2, Argument + Arguments});
}
