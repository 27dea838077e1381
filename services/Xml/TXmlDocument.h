// An XML file as a tree. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "services/Xml/TXmlForm.h"

namespace vx {

class TXmlDocument;

namespace detail {
class TXmlTreeBuilder;
}

enum TXmlNodeKind : uint8_t {
  xnDocument,     // the document itself: its children are the root and what stands around it
  xnElement,      // a name, attributes, children
  xnText,         // a value
  xnCData,        // a value
  xnComment,      // a value
  xnInstruction,  // a name and a value
  xnDoctype       // as it was read: the name of the root, and as value what stands behind it
};

// A name with a value, which are the document's.
class TXmlAttr {
 public:
  std::u16string_view GetName() const noexcept { return FName; }
  std::u16string_view GetValue() const noexcept { return FValue; }
  TXmlAttr* GetNext() const noexcept { return FNext; }

 private:
  friend class TXmlNode;
  friend class TXmlDocument;
  friend class detail::TXmlTreeBuilder;
  std::u16string_view FName, FValue;
  TXmlAttr* FNext = nullptr;
};

// What a for loop goes through: TItem by TItem.
template <typename TItem, typename TStep>
class TXmlRange {
 public:
  class TIterator {
   public:
    TIterator(TItem* Item, TStep Step) noexcept : FItem(Item), FStep(Step) {}
    TItem& operator*() const noexcept { return *FItem; }
    TIterator& operator++() noexcept {
      FItem = FStep(FItem->GetNext());
      return *this;
    }
    bool operator==(const TIterator& Other) const noexcept { return FItem == Other.FItem; }

   private:
    TItem* FItem;
    TStep FStep;
  };
  TXmlRange(TItem* First, TStep Step) noexcept : FFirst(Step(First)), FStep(Step) {}
  TIterator begin() const noexcept { return {FFirst, FStep}; }
  TIterator end() const noexcept { return {nullptr, FStep}; }

 private:
  TItem* FFirst;
  TStep FStep;
};

// All nodes are made by the document, or by a node of it, and stay its own: none is ever freed by a caller. Names and
// values are taken as they are given, any of them; WriteXml refuses those that XML cannot hold.
class TXmlNode {
 public:
  TXmlNode(const TXmlNode&) = delete;
  TXmlNode& operator=(const TXmlNode&) = delete;

  TXmlNodeKind GetKind() const noexcept { return FKind; }
  bool IsElement() const noexcept { return FKind == xnElement; }
  // The line of the file where it begins; 0 for what was added.
  int GetLine() const noexcept { return FLine; }
  std::u16string_view GetName() const noexcept { return FName; }
  void SetName(std::u16string_view Value);
  // Of a text, character data, a comment, an instruction; of elements nobody asks for it.
  std::u16string_view GetValue() const noexcept { return FValue; }
  void SetValue(std::u16string_view Value);
  // Of an element all texts and character data directly in it, in one; else the value.
  String GetText() const;
  // The children of an element go, and Value, unless it is empty, is its text.
  void SetText(std::u16string_view Value);

  // --- around it; nullptr where there is none ---
  TXmlDocument& GetDocument() const noexcept { return *FDocument; }
  TXmlNode* GetParent() const noexcept { return FParent; }
  TXmlNode* GetFirst() const noexcept { return FFirst; }
  TXmlNode* GetLast() const noexcept { return FLast; }
  TXmlNode* GetNext() const noexcept { return FNext; }
  TXmlNode* GetPrevious() const noexcept { return FPrevious; }
  // The first element of that name among the children.
  TXmlNode* Find(std::u16string_view Name) const noexcept;
  // The text of that element; empty if there is none.
  String FindText(std::u16string_view Name) const;
  // For loops: all children; those that are elements, or only those of a name, which has to stay as long.
  auto Children() const noexcept {
    return TXmlRange(FFirst, [](TXmlNode* node) noexcept { return node; });
  }
  auto Elements(std::u16string_view Name = {}) const noexcept {
    return TXmlRange(FFirst, [Name](TXmlNode* node) noexcept {
      while (node != nullptr && !(node->IsElement() && (Name.empty() || node->FName == Name))) node = node->FNext;
      return node;
    });
  }

  // --- attributes, of elements ---
  auto Attributes() const noexcept {
    return TXmlRange(FFirstAttr, [](TXmlAttr* attr) noexcept { return attr; });
  }
  bool HasAttribute(std::u16string_view Name) const noexcept { return FindAttr(Name) != nullptr; }
  // Empty if there is none.
  std::u16string_view GetAttribute(std::u16string_view Name) const noexcept;
  // A value for the one of that name, or a further one.
  void SetAttribute(std::u16string_view Name, std::u16string_view Value);
  // Whether there was one.
  bool DeleteAttribute(std::u16string_view Name) noexcept;

  // --- changes ---
  // A last child: an element, with a text unless it is empty; or one of another kind.
  TXmlNode* Add(std::u16string_view Name, std::u16string_view Text = {});
  TXmlNode* AddText(std::u16string_view Value);
  TXmlNode* AddCData(std::u16string_view Value);
  TXmlNode* AddComment(std::u16string_view Value);
  TXmlNode* AddInstruction(std::u16string_view Name, std::u16string_view Value);
  // A copy of Node with all that is in it, also of another document, as last child.
  TXmlNode* AddCopy(const TXmlNode& Node);
  // Child, which must be one of this node's, goes with all that is in it; its memory stays the document's.
  void Delete(TXmlNode* Child) noexcept;
  void Clear() noexcept;

 private:
  friend class TXmlDocument;
  friend class detail::TXmlTreeBuilder;
  TXmlNode(TXmlDocument& Document, TXmlNodeKind Kind) noexcept : FDocument(&Document), FKind(Kind) {}
  TXmlAttr* FindAttr(std::u16string_view Name) const noexcept;
  TXmlNode* AddNode(TXmlNodeKind Kind, std::u16string_view Name, std::u16string_view Value);

  std::u16string_view FName, FValue;
  TXmlDocument* FDocument;
  TXmlNode* FParent = nullptr;
  TXmlNode* FFirst = nullptr;
  TXmlNode* FLast = nullptr;
  TXmlNode* FNext = nullptr;
  TXmlNode* FPrevious = nullptr;
  TXmlAttr* FFirstAttr = nullptr;
  int FLine = 0;
  TXmlNodeKind FKind;
};

// Owns all nodes and their texts. One thread a document.
class TXmlDocument {
 public:
  TXmlDocument();
  ~TXmlDocument();
  TXmlDocument(const TXmlDocument&) = delete;
  TXmlDocument& operator=(const TXmlDocument&) = delete;

  // The element that holds all others; nullptr if there is none.
  TXmlNode* GetRoot() const noexcept;
  // Makes an element of that name the root, in the place of all that the document holds.
  TXmlNode* SetRoot(std::u16string_view Name);
  // Holds the root, and the comments, instructions and the document type around it.
  TXmlNode& GetTop() const noexcept { return *FTop; }
  // Of the file that was read; TXmlForm() for a document that was not.
  const TXmlForm& GetForm() const noexcept { return FForm; }
  void Clear();

 private:
  friend class TXmlNode;
  friend class detail::TXmlTreeBuilder;
  struct TMemory;
  TXmlNode* NewNode(TXmlNodeKind Kind);
  TXmlAttr* NewAttr(std::u16string_view Name, std::u16string_view Value);
  std::u16string_view Keep(std::u16string_view Text);

  std::unique_ptr<TMemory> FMemory;
  TXmlNode* FTop = nullptr;
  TXmlForm FForm;
};

}  // namespace vx
