// The node that is the sorted list of its children.
#pragma once

#include <memory>

#include "platform/TObjectList.h"
#include "platform/TStrings.h"

namespace vx {

// The children are TVxTextNode objects in the order of CompareText, each text once. A list that owns its
// children frees them, and is the parent of what it takes in; what it gives away is a root. Trees of any depth may
// be read, written, copied and freed.
//
// Pitfalls: a node must neither stand in two lists that own nor come below itself. SetText and whatever else
// gives a node another text does not move it to its new place among its siblings. When a whole branch is freed,
// the destructors of the nodes below find them without their children.
class TVxTextNode : public TObjectList {
 public:
  TVxTextNode() noexcept = default;
  explicit TVxTextNode(bool OwnsObjects) noexcept : TObjectList(OwnsObjects) {}
  // Owns its children. Parent is remembered, but is not given the node: that is done by Add.
  TVxTextNode(TVxTextNode* Parent, String Text) noexcept : iParent(Parent), iText(std::move(Text)) {}
  ~TVxTextNode() override;
  String ClassName() const override { return u"TVxTextNode"; }

  // nullptr for a root.
  TVxTextNode* GetParent() const noexcept { return iParent; }
  void SetParent(TVxTextNode* Value) noexcept { iParent = Value; }
  const String& GetText() const noexcept { return iText; }
  void SetText(String Value) noexcept { iText = std::move(Value); }
  // The child at that place, which stays the list's.
  TVxTextNode* GetItems(int Index) const { return static_cast<TVxTextNode*>(Get(Index)); }

  // The order and the sameness of texts: AnsiCompareText.
  virtual int CompareText(std::u16string_view A, std::u16string_view B) const;
  // A new node of the same kind; a derived class makes one of its own.
  [[nodiscard]] virtual std::unique_ptr<TVxTextNode> GetNewInstance(TVxTextNode* Parent, String Text) const;
  // The fields as texts: clears Strings and adds the text.
  virtual void GetTextList(TStrings& Strings) const;
  // Takes the fields from the first Count of Strings, from all of them for a negative Count. Without any the text
  // becomes empty.
  virtual void SetTextList(const TStrings& Strings, int Count);
  // Takes over the fields of Source, not its children.
  virtual void Assign(const TVxTextNode& Source);
  // Sets all fields to their defaults: no text.
  virtual void InitNode();
  // Neither text nor children.
  virtual bool isEmpty() const;

  // InitNode and Clear.
  void Init();
  bool isLeaf() const noexcept { return GetCount() == 0; }
  bool isNode() const noexcept { return iParent != nullptr; }
  bool isRoot() const noexcept { return iParent == nullptr; }
  // The number of ancestors.
  int Level() const noexcept;
  // The number of all nodes below.
  int NodeCount() const;

  // The place where a child of that text stands or would be put.
  int IndexSort(std::u16string_view Text) const;
  // Whether there is such a child; Index is what IndexSort gives.
  bool Find(std::u16string_view Text, int& Index) const;
  // -1 if there is none.
  int IndexOf(std::u16string_view Text) const;
  // The place of the child that has the text of Object.
  int IndexOf(const TVxTextNode* Object) const { return Object ? IndexOf(Object->iText) : -1; }

  // Puts Node at its place and returns that. A child of the same text gives up its place and is freed with all
  // below it, if the list owns. EAccessViolation u"Ungültige Referenzierung auf Node!" for nullptr, for what is no
  // TVxTextNode and for this node itself.
  int Add(TObject* Node) override;
  // Add: the index counts for nothing.
  void Insert(int Index, TObject* Node) override;
  // Deletes the child that has the text of Node, be it Node or another one; returns where it stood, -1 if there is
  // none.
  int Remove(TObject* Node) override;
  TObject* Extract(TObject* Node) override;
  // Refused with a warning; nothing changes.
  void Exchange(int A, int B) override;
  void Move(int From, int To) override;

  // Adds a new child of that text, which replaces one that is there, and returns it.
  TVxTextNode* GetNewItem(String Text);
  // The child of that text, which is added if it is not there.
  TVxTextNode* Validate(const String& Text);
  // Whether there is a child of the first text, below it one of the second and so on.
  bool Exists(const TStrings& Strings) const;
  // Goes down that path, adds what is missing and returns the last node; this one for no Strings.
  TVxTextNode* ValidateNodes(const TStrings& Strings);
  // The texts from the root down to this node, joined by Separator: u"a\\b\\c".
  String TextToRoot(std::u16string_view Separator) const;

  // Takes this node out of its parent and gives it to the caller, as a root. nullptr for a node that is none of its
  // parent's children, or a root before: it stays whose it is.
  [[nodiscard]] std::unique_ptr<TVxTextNode> NodeToTree();

  // A new node of the same kind and fields, without children or with copies of all that is below. It is not added
  // to Parent.
  [[nodiscard]] std::unique_ptr<TVxTextNode> Duplicate(TVxTextNode* Parent) const;
  [[nodiscard]] std::unique_ptr<TVxTextNode> DuplicateDeep(TVxTextNode* Parent) const;
  // A copy that holds the same children without owning them or being their parent.
  [[nodiscard]] std::unique_ptr<TVxTextNode> DuplicateVirtual() const;
  // Takes over the fields of Node, and those of all below it in children of the same texts, which are added where
  // they are missing. Node may be a part of this tree.
  void AddMerge(const TVxTextNode& Node);
  // The same with the nodes themselves instead of copies, as far as they are missing; Node is used up. nullptr changes
  // nothing; EAccessViolation, and Node stays the caller's, if this node is Node or below it.
  void AddMergeFree(std::unique_ptr<TVxTextNode>&& Node);

  // Looks for an entry equal to Name from Index - 1 down to 1; its place becomes Index, which stays if there is none.
  // Returns Index.
  static int FindClassname(const TStrings& Strings, std::u16string_view Name, int& Index);

  // The lighttext (see platform/TextForms.h) of GetTextList, empty if isEmpty; taken by SetTextList, an empty
  // one by InitNode.
  String GetLightText() const;
  void SetLightText(std::u16string_view Text);
  // The node and all below it as text: empty if isEmpty, else the offsettext of LightText and of the Serialize of
  // each child, u"1°a3°1°b" for a and its child b.
  String GetSerialize() const;
  // Replaces the children, and the fields as SetLightText does, by those of that text, any text. Of children of one
  // text the last one stays.
  void SetSerialize(std::u16string_view Text);

 protected:
  void Notify(TObject* Object, TListNotification Action) override;

 private:
  using TObjectList::Arrange;  // the order is that of the texts
  using TObjectList::Put;
  using TObjectList::SetCount;
  using TObjectList::Sort;

  void Take(int Index);
  void GiveNodes(TVxTextNode*& Chain) noexcept;

  TVxTextNode* iParent = nullptr;
  TVxTextNode* FNextToFree = nullptr;
  String iText;
};

}  // namespace vx
