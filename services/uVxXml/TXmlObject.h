// An element of XML with its attributes and children.
#pragma once

#include "platform/TObjectList.h"
#include "platform/TStrings.h"

namespace vx {

class TXmlAttribute : public TObject {
 public:
  TXmlAttribute() noexcept = default;
  TXmlAttribute(String Name, String Value) noexcept : iName(std::move(Name)), iValue(std::move(Value)) {}
  String ClassName() const override { return u"TXmlAttribute"; }

  const String& GetName() const noexcept { return iName; }
  void SetName(String Value) noexcept { iName = std::move(Value); }
  // As it is meant: writing encodes it. Reading takes it as it stands in the text, without decoding.
  const String& GetValue() const noexcept { return iValue; }
  void SetValue(String Value) noexcept { iValue = std::move(Value); }

 private:
  String iName;
  String iValue;
};

// Names are compared with regard to case. Indexes count from 0; one outside raises EListError. Trees of any depth
// can be read, written and freed.
class TXmlObject : public TObject {
 public:
  TXmlObject() noexcept = default;
  ~TXmlObject() override;
  TXmlObject(const TXmlObject&) = delete;
  TXmlObject& operator=(const TXmlObject&) = delete;
  String ClassName() const override { return u"TXmlObject"; }

  // The attributes and the children; both lists own what they hold.
  TObjectListOf<TXmlAttribute> Attributes;
  TObjectListOf<TXmlObject> XmlObjects;

  int GetAttributeCount() const noexcept { return Attributes.GetCount(); }
  TXmlAttribute* GetAttribute(int Index) const { return Attributes.Get(Index); }
  // Number of children.
  int GetCount() const noexcept { return XmlObjects.GetCount(); }
  TXmlObject* GetXml(int Index) const { return XmlObjects.Get(Index); }

  const String& GetName() const noexcept { return iName; }
  void SetName(String Value) noexcept { iName = std::move(Value); }
  // The plain text of the element; writing encodes it. A line break in it makes it several lines.
  const String& GetValue() const noexcept { return iValue; }
  void SetValue(String Value) noexcept { iValue = std::move(Value); }
  // A root is written even with nothing in it, and then has the line <NULL />. False unless set.
  bool GetIsRoot() const noexcept { return iIsRoot; }
  void SetIsRoot(bool Value) noexcept { iIsRoot = Value; }

  // Appends a new child, or Object, which must not be in a list yet and is this element's from now on; returns it.
  // nullptr is ignored and returned.
  TXmlObject* Add(String Name, String Value);
  TXmlObject* Add(TXmlObject* Object);
  // Appends an attribute, also where there is one of that name; returns it.
  TXmlAttribute* AddAttribute(String Name, String Value);

  // The index of the first child, or attribute, of that name; -1 if there is none.
  int IndexOf(std::u16string_view Name) const noexcept;
  int IndexOfAttribute(std::u16string_view Name) const noexcept;
  // The value of the first child of that name or, if there is none, of the first attribute; false, with Value as it
  // was, if there is neither.
  bool GetValue(std::u16string_view Name, String& Value) const;
  // The same; empty if there is neither.
  String GetValue(std::u16string_view Name) const;

  // The commatext of the element's lines, each behind Indent blanks, and two more for each level below. Names are
  // in upper case, attributes without value are left out, children come before the value, whose lines stand without
  // blanks. An element with nothing in it gives no line, save for a root. u"<A>,\"  <B X=\"\"1\"\" />\",</A>" is A with
  // B in it. A text of 2^31 code units or more raises std::length_error: blanks grow with the square of the depth.
  String GetXmlCommatext(int Indent) const;
  // The same lines in the place of the items of Strings.
  void GetXmlText(int Indent, TStrings& Strings) const;

  // Reads the first element of Text and returns the rest of Text, which begins behind the name of the closing tag, at
  // the slash of a closing tag if that comes before any element, or at the end, which a code unit 0 is, too.
  // Prologues are passed over, and so are comments and character data, <!...--> and <!...]]>, these two whole only
  // behind an opening tag; elsewhere the unit's pitfalls tell how far. What is read is added
  // to what this element has: give a fresh one. Any text is taken; see the unit's pitfalls. The time grows with what
  // is read, whatever it is.
  std::u16string_view Read(std::u16string_view Text);

 private:
  TXmlObject* TakeLastChild();

  bool iIsRoot = false;
  String iName;
  String iValue;
  TXmlObject* iParent = nullptr;  // only while the tree is freed
};

}  // namespace vx
