// XML objects, and the encoders of markup that the library uses.
//
//   TXmlObject, TXmlAttribute              an element with its attributes and children; reads and writes itself
//   XMLEncode, XMLDecode, StripHTMLTags    between plain text and markup
//   CodepageToEncoding, TMyEncodingHelper  web names of code pages and encodings
//
// Example:
//   vx::TXmlObject patient;
//   patient.SetName(u"Patient");
//   patient.AddAttribute(u"id", u"4711");
//   patient.Add(u"Name", u"Müller & Söhne");
//   vx::TVxStringList lines;
//   patient.GetXmlText(0, lines);     // <PATIENT id="4711">, then   <NAME>, Müller &amp; Söhne and so on
//   vx::TXmlObject read;
//   read.Read(lines.GetTextStr());
//   vx::String name;
//   read.GetValue(u"NAME", name);     // true; u"Müller & Söhne\r\n  "
//
// This is no conforming parser: it reads the subset that the library and its partners write, with a
// forgiving scan that rejects nothing. Files of other programs, and new ones, are read and written by Xml.h, which
// keeps names and values as they are and refuses what is no XML.
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfalls:
//   - Names are written in upper case and are compared with regard to case.
//   - An element ends at its closing tag alone: one without, <a/> and <a x="1" /> too, takes what follows it
//     for its children.
//   - In front of the root, and behind a child, a comment ends at its first "<": what stands there is read as an
//     element, <!-- <b>x</b> --> as b. Behind an opening tag, in a value and between attributes comments are whole.
//   - A value that is read keeps the line break and the blanks before the closing tag.
//   - Values of attributes are encoded when written but not decoded when read.
//   - Elements without attributes, value and children vanish when written.
#pragma once

#include "services/uVxXml/CodePageNames.h"
#include "services/uVxXml/TXmlObject.h"
#include "services/uVxXml/XmlText.h"
