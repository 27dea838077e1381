// XML of 5 MB read and written, side by side with tinyxml2 and pugixml, and templates filled, side by side with
// finding and replacing in std::string.
#include <tinyxml2.h>

#include <cstdlib>
#include <memory>
#include <pugixml.hpp>
#include <random>
#include <sstream>

#include "bench/machinery/Topics.h"
#include "bench/support/Bench.h"
#include "objects/uVxClasses.h"
#include "objects/uVxClassesString.h"
#include "platform/CodePage.h"
#include "services/Xml.h"
#include "services/uVxXml.h"

namespace vx::bench {
namespace {

// Patients with attributes and children, as the library writes them.
std::unique_ptr<TXmlObject> MakeTree(size_t Units) {
  auto root = std::make_unique<TXmlObject>();
  root->SetName(u"Patienten");
  std::mt19937 random(4711);
  for (size_t i = 0; i < Units / 470; ++i) {
    TXmlObject* patient = root->Add(u"Patient", u"");
    patient->AddAttribute(u"id", std::to_string(random()).c_str()[0] == '1' ? u"1000012" : u"2000371");
    patient->AddAttribute(u"pflegegrad", u"3");
    patient->Add(u"Name", u"Meier-Lüdenscheid");
    patient->Add(u"Vorname", u"Hans & Grete");
    patient->Add(u"Geburtsdatum", u"11.02.1935");
    TXmlObject* visits = patient->Add(u"Besuche", u"");
    for (int v = 0; v < 3; ++v) {
      TXmlObject* visit = visits->Add(u"Besuch", u"Große Körperpflege, mit Hilfe beim Aufstehen");
      visit->AddAttribute(u"datum", u"12.03.2015");
      visit->AddAttribute(u"dauer", u"45");
    }
  }
  return root;
}

void MeasureXml(const char* What, size_t Units) {
  auto tree = MakeTree(Units);
  TVxStringList lines;
  tree->GetXmlText(0, lines);
  const String text = lines.GetTextStr();
  const std::string bytes = text.ToUtf8();
  std::printf("%s: %.2f MB\n", What, static_cast<double>(bytes.size()) / 1e6);
  auto decoded = [&] { return GetSystemCodePage().Decode(bytes); };
  auto ours = [&] {
    return Time([&] {
      TXmlObject object;
      object.Read(text);
      Expect(object.GetCount() == tree->GetCount(), "read");
    });
  };
  auto oursBytes = [&] {
    return Time([&] {
      TXmlObject object;
      object.Read(decoded());
    });
  };
  auto tiny = [&] {
    return Time([&] {
      tinyxml2::XMLDocument doc;
      Expect(doc.Parse(bytes.data(), bytes.size()) == 0, "tiny");
    });
  };
  auto pugi = [&] {
    return Time([&] {
      pugi::xml_document doc;
      Expect(bool(doc.load_buffer(bytes.data(), bytes.size())), "pugi");
    });
  };
  const auto read = Medians(9, ours, oursBytes, tiny, pugi);
  const TBar level = TBar::AtLeast(1);
  Report("machinery/read_xml", read[0], "tinyxml2", read[2], 1, level);
  Report("machinery/read_xml", read[0], "pugixml", read[3]);
  Report("machinery/decode_and_read_xml", read[1], "tinyxml2", read[2], 1, level);
  tinyxml2::XMLDocument tinyDoc;
  tinyDoc.Parse(bytes.data(), bytes.size());
  pugi::xml_document pugiDoc;
  pugiDoc.load_buffer(bytes.data(), bytes.size());
  size_t sum = 0;
  auto oursComma = [&] { return Time([&] { sum += static_cast<size_t>(tree->GetXmlCommatext(0).size()); }); };
  auto oursLines = [&] {
    return Time([&] {
      TVxStringList list;
      tree->GetXmlText(0, list);
      sum += static_cast<size_t>(list.GetCount());
    });
  };
  auto oursBytesOut = [&] {
    return Time([&] {
      TVxStringList list;
      tree->GetXmlText(0, list);
      sum += list.GetTextStr().ToUtf8().size();
    });
  };
  auto tinyOut = [&] {
    return Time([&] {
      tinyxml2::XMLPrinter printer;
      tinyDoc.Print(&printer);
      sum += static_cast<size_t>(printer.CStrSize());
    });
  };
  auto pugiOut = [&] {
    return Time([&] {
      std::ostringstream out;
      pugiDoc.save(out);
      sum += out.str().size();
    });
  };
  const auto write = Medians(9, oursComma, oursLines, oursBytesOut, tinyOut, pugiOut);
  Report("machinery/write_xml_commatext", write[0], "tinyxml2", write[3], 1, level);
  Report("machinery/write_xml_lines", write[1], "tinyxml2", write[3], 1, level);
  Report("machinery/write_xml_utf8", write[2], "tinyxml2", write[3], 1, level);
  Report("machinery/write_xml_commatext", write[0], "pugixml", write[4]);
}

// The strict reader and writer. pugixml keeps all, too; tinyxml2 leaves out texts of blanks alone.
void MeasureStrictXml(size_t Units) {
  TVxStringList lines;
  MakeTree(Units)->GetXmlText(0, lines);
  const std::string bytes = lines.GetTextStr().ToUtf8();
  constexpr unsigned kAll = pugi::parse_full | pugi::parse_ws_pcdata;
  TXmlDocument document;
  tinyxml2::XMLDocument tinyDoc(true, tinyxml2::PRESERVE_WHITESPACE);
  pugi::xml_document pugiDoc;
  size_t pieces = 0, size = 0;
  auto ours = [&] { return Time([&] { Expect(!ReadXml(document, std::string_view(bytes)), "read"); }); };
  auto oursPieces = [&] {
    return Time([&] {
      TXmlReader reader = TXmlReader::OverBytes(bytes);
      while (reader.Next()) ++pieces;
    });
  };
  auto tiny = [&] { return Time([&] { Expect(tinyDoc.Parse(bytes.data(), bytes.size()) == 0, "tiny"); }); };
  auto pugi = [&] {
    return Time([&] { Expect(bool(pugiDoc.load_buffer(bytes.data(), bytes.size(), kAll)), "pugi"); });
  };
  const auto read = Medians(9, ours, oursPieces, tiny, pugi);
  Report("machinery/read_strict_xml", read[0], "tinyxml2", read[2], 1, TBar::AtLeast(1));
  Report("machinery/read_strict_xml", read[0], "pugixml", read[3]);
  Report("machinery/read_strict_xml_pieces", read[1], "pugixml", read[3]);
  auto oursOut = [&] { return Time([&] { size += WriteXml(document).Bytes.size(); }); };
  auto tinyOut = [&] {
    return Time([&] {
      tinyxml2::XMLPrinter printer(nullptr, true);
      tinyDoc.Print(&printer);
      size += static_cast<size_t>(printer.CStrSize());
    });
  };
  auto pugiOut = [&] {
    return Time([&] {
      std::ostringstream out;
      pugiDoc.save(out, "", pugi::format_raw);
      size += out.str().size();
    });
  };
  const auto write = Medians(9, oursOut, tinyOut, pugiOut);
  Report("machinery/write_strict_xml", write[0], "tinyxml2", write[1], 1, TBar::AtLeast(1));
  Report("machinery/write_strict_xml", write[0], "pugixml", write[2]);
  Expect(pieces > 0 && size > 0, "strict");
}

void MeasureTemplates() {
  constexpr int kFills = 10000, kHolders = 50;
  String source;
  std::string plain;
  std::vector<String> holders, values;
  std::vector<std::string> plainHolders, plainValues;
  for (int i = 0; i < kHolders; ++i) {
    plainHolders.push_back("%Feld" + std::to_string(i) + "%");
    plainValues.push_back("Wert Nummer " + std::to_string(i));
    holders.push_back(String::FromUtf8(plainHolders.back()));
    values.push_back(String::FromUtf8(plainValues.back()));
    plain += "Sehr geehrte Damen und Herren, wir berechnen " + plainHolders.back() + " und gruessen Sie herzlich. ";
  }
  source = String::FromUtf8(plain);
  size_t sum = 0, plainSum = 0;
  auto ours = [&] {
    return Time([&] {
      TVxStringReplacer letter;
      letter.ReplaceString(source, holders, values, true);
      for (int i = 0; i < kFills; ++i) sum += static_cast<size_t>(letter.Replace(values).ToString().size());
    });
  };
  auto naive = [&] {
    return Time([&] {
      for (int i = 0; i < kFills; ++i) {
        std::string text = plain;
        for (size_t h = 0; h < plainHolders.size(); ++h)
          for (size_t at = text.find(plainHolders[h]); at != text.npos;
               at = text.find(plainHolders[h], at + plainValues[h].size()))
            text.replace(at, plainHolders[h].size(), plainValues[h]);
        plainSum += text.size();
      }
    });
  };
  const auto times = Medians(5, ours, naive);
  Expect(sum == plainSum, "fills");
  Report("machinery/fill_template", times[0], "find_and_replace", times[1], kFills, TBar::AtLeast(5));
}

}  // namespace

void RunTexts() {
  MeasureTemplates();
  MeasureXml("0.5 MB", 500000);
  MeasureXml("5 MB", 5000000);
  for (size_t units : {500000, 5000000}) MeasureStrictXml(units);
}

}  // namespace vx::bench
