// XML as other programs write and read it: the way for new files.
//
//   TXmlDocument, TXmlNode       a file as a tree
//   LoadXml, ReadXml             a tree from a file, from bytes or from a text
//   SaveXml, WriteXml            and back
//   TXmlReader                   the pieces of a file one after the other, without a tree
//   TXmlFault                    what is wrong, by line and column
//   TXmlForm, TXmlLimits         encoding and indentation; how much is read
//
// Example:
//   vx::TXmlDocument letter;
//   const vx::TXmlFault fault = vx::ReadXml(letter, u"<Brief an='Müller'><Ort>Köln</Ort><Eilig/></Brief>");
//   if (fault) show(fault.GetText());                       // Zeile 3, Spalte 7: ...; the document is as it was
//   vx::TXmlNode* root = letter.GetRoot();
//   root->GetAttribute(u"an");                              // u"Müller"
//   root->Find(u"Ort")->GetText();                          // u"Köln"
//   root->Add(u"Betrag", u"25 < 30 €");
//   root->SetAttribute(u"vom", u"24.12.2026");
//   for (vx::TXmlNode& child : root->Elements()) show(child.GetName());
//   vx::TXmlForm form;
//   form.Encoding = vx::xeIso8859_1;
//   form.Indent = 2;
//   vx::WriteXml(letter, form).Bytes;                       // <Betrag>25 &lt; 30 &#8364;</Betrag> in it
//
// This is XML 1.0 without validation. Whatever is not well-formed is refused, with line and column. Names stand as they
// are written, prefixes included, and case matters; declarations of namespaces are attributes. Texts come without
// changes but those that XML demands: line ends are line feeds, blanks in attributes are blanks. Encodings: UTF-8,
// UTF-16 in both orders, ASCII, ISO-8859-1, ISO-8859-15, windows-1252. Any other is refused by name.
//
// Nothing outside the file is ever read. Of a document type the entities, and the attributes with defaults, that stand
// in the file itself count. Refused are references to entities that are not declared there, are external, hold markup
// or hold themselves, and those to parameter entities; so nothing is left out in silence.
//
// Time and memory grow with the size of the file, whatever stands in it: the depth and what entities expand to are
// limited by TXmlLimits, and nothing recurses.
//
// Pitfalls:
//   - Blanks and line breaks between elements are texts, too. xroDropBlanks leaves them out.
//   - A node and the views that it gives are the document's: they end with it, or with the next load.
//   - TXmlObject (uVxXml.h) reads and writes the lenient subset of old files, whose values carry blanks.
#pragma once

#include "services/Xml/TXmlDocument.h"
#include "services/Xml/TXmlFault.h"
#include "services/Xml/TXmlForm.h"
#include "services/Xml/TXmlReader.h"
#include "services/Xml/XmlFiles.h"
