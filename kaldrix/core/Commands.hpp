// The undo commands. Each holds the old value of one property of one item, the item's points, or the whole
// item.
//
// A command is recorded just before the change, by (kind, index), and restored through the same setter that
// made the change: what that setter records lands on the opposite stack, so that redo needs no code of its
// own. Commands keep the identity of their item and look it up when they run; one whose item is gone does
// nothing. When all items are cleared and the stacks stay, identities begin again: the commands are then
// about another drawing, meet no item of the new one, and wake only when an undo or redo brings their item
// back.
#pragma once

#include <span>
#include <string>

#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

class TKDXCmd {
 public:
  virtual ~TKDXCmd() = default;
  TKDXCmd(const TKDXCmd&) = delete;
  TKDXCmd& operator=(const TKDXCmd&) = delete;

  virtual void RestoreState() = 0;
  /// Asks for the memory that RestoreState works on: of the item, if it still stands where it stood, and what
  /// the command itself holds elsewhere. Looks at neither.
  virtual void FetchState() const;
  virtual void Undo();
  virtual void Redo();

  /// The item, or none when it is gone.
  TKDXBaseItem* Receiver() const;
  bool IsAbout(const TKDXBaseItem& aItem) const;
  bool IsAboutTheSame(const TKDXCmd& aOther) const {
    return fID == aOther.fID && fDrawing == aOther.fDrawing;
  }
  /// From now on the command is about this item.
  void TakeReceiver(const TKDXBaseItem& aItem);
  /// Is the top of the active stack a command of this kind and index (fIndex) about this item? Then its older
  /// value stands.
  static bool CheckLastProp(int aKind, const TKDXBaseItem& aReceiver, int aIndex);

  TKDXBaseLabel* const fDocument;
  const int fKind;
  const int fIndex;     ///< the number of the property in the table of that kind, or the point, 1-based
  const int fUndRedID;  ///< group number
  int fID;              ///< identity of the item

 private:
  // While no item of the document goes, the item stands where it stood.
  TKDXBaseItem* const fItem;
  const unsigned fGoneItems;
  unsigned fDrawing;  ///< of the document, see TKDXBaseLabel::Drawing

 protected:
  class TRunning;

  TKDXCmd(int aKind, TKDXBaseItem& aReceiver, int aIndex);

  static bool IsRecording(const TKDXBaseItem& aItem);
  /// Puts a new command on the active stack and tells the host.
  static void Push(std::unique_ptr<TKDXCmd> aCommand);
};

/// How one property is read and given back.
template <class TValue>
struct TAccess {
  int index;
  TValue (*read)(const TKDXBaseItem&);
  void (*write)(TKDXBaseItem&, const TValue&);
};

/// A command that holds the value of one property. The traits tell the value type, the kind, whether a run of
/// changes merges, and the table of properties; an index without a row records nothing.
template <class TTraits>
class TKDXPropertyCmd final : public TKDXCmd {
 public:
  using TValue = typename TTraits::TValue;

  static void AddCommand(TKDXBaseItem& aItem, int aIndex) {
    TTraits::Announce(aItem);
    if (!IsRecording(aItem)) return;
    if (TTraits::Merges && CheckLastProp(TTraits::Kind, aItem, aIndex)) return;
    const TAccess<TValue>* access = Find(aIndex);
    if (access == nullptr) return;
    Push(std::unique_ptr<TKDXCmd>(new TKDXPropertyCmd(aItem, *access)));
  }

  void RestoreState() override {
    if (TKDXBaseItem* item = Receiver()) fAccess.write(*item, fValue);
  }

 private:
  TKDXPropertyCmd(TKDXBaseItem& aItem, const TAccess<TValue>& aAccess)
      : TKDXCmd(TTraits::Kind, aItem, aAccess.index), fAccess(aAccess), fValue(aAccess.read(aItem)) {}

  static const TAccess<TValue>* Find(int aIndex) {
    for (const TAccess<TValue>& access : TTraits::Table()) {
      if (access.index == aIndex) return &access;
    }
    return nullptr;
  }

  const TAccess<TValue>& fAccess;  ///< a row of the table
  TValue fValue;
};

template <class TPropertyValue, int TheKind, bool DoesMerge>
struct TPropertyTraits {
  using TValue = TPropertyValue;
  static constexpr int Kind = TheKind;
  static constexpr bool Merges = DoesMerge;
  /// What is reported even when nothing is recorded.
  static void Announce(TKDXBaseItem&) {}
};

struct TColorTraits : TPropertyTraits<TAlphaColor, 1, true> {
  static void Announce(TKDXBaseItem& aItem);
  static std::span<const TAccess<TAlphaColor>> Table();
};
struct TBaseValueTraits : TPropertyTraits<int, 4, true> {
  static std::span<const TAccess<int>> Table();
};
struct TBoolTraits : TPropertyTraits<bool, 5, false> {
  static std::span<const TAccess<bool>> Table();
};
struct TEnumValueTraits : TPropertyTraits<std::uint8_t, 6, true> {
  static std::span<const TAccess<std::uint8_t>> Table();
};
struct TTxtTraits : TPropertyTraits<std::string, 10, true> {
  static std::span<const TAccess<std::string>> Table();
};
struct TFloatTraits : TPropertyTraits<Single, 12, false> {
  static std::span<const TAccess<Single>> Table();
};

using TKDXColorCmd = TKDXPropertyCmd<TColorTraits>;
using TKDXBaseValueCmd = TKDXPropertyCmd<TBaseValueTraits>;
using TKDXBoolCmd = TKDXPropertyCmd<TBoolTraits>;
using TKDXEnumValueCmd = TKDXPropertyCmd<TEnumValueTraits>;
using TKDXTxtCmd = TKDXPropertyCmd<TTxtTraits>;
using TKDXFloatCmd = TKDXPropertyCmd<TFloatTraits>;

/// An item was made; undoing deletes it.
class TKDXCreateCmd final : public TKDXCmd {
 public:
  static constexpr int Kind = 2;
  static void AddCommand(TKDXBaseItem& aItem);
  void RestoreState() override {}
  void Undo() override;
  void Redo() override;

 private:
  explicit TKDXCreateCmd(TKDXBaseItem& aItem) : TKDXCmd(Kind, aItem, 0) {}
  void DeleteReceiver();
};

/// An item was deleted; undoing makes it again from its record, as the topmost and with its old identity.
class TKDXDeleteCmd final : public TKDXCmd {
 public:
  static constexpr int Kind = 3;
  static void AddCommand(TKDXBaseItem& aItem);
  void RestoreState() override {}
  void Undo() override;
  void Redo() override;

 private:
  explicit TKDXDeleteCmd(TKDXBaseItem& aItem);
  void BringBack();

  std::string fStream;  ///< format version, then the item's record
};

/// One coordinate of a point, in document units.
class TKDXPosCmd final : public TKDXCmd {
 public:
  static constexpr int Kind = 7;
  /// `aIndex` is the point, 1-based; `aPosType` ptX or ptY.
  static void AddCommand(TKDXBaseItem& aItem, int aIndex, TZORPosType aPosType);
  void RestoreState() override;

 private:
  TKDXPosCmd(TKDXBaseItem& aItem, int aIndex, TZORPosType aPosType);

  Single fValue;
  TZORPosType fPosType;
};

/// One point, in base points: of an item, or with LinkKind an inner point of a link.
class TKDXBasePosCmd final : public TKDXCmd {
 public:
  static constexpr int Kind = 8;
  static constexpr int LinkKind = 9;  ///< shared with TKDXElePosCmd, whose index is 0
  /// `aIndex` is the point, 1-based.
  static void AddCommand(TKDXBaseItem& aItem, int aKind, int aIndex);
  void RestoreState() override;

 private:
  TKDXBasePosCmd(TKDXBaseItem& aItem, int aKind, int aIndex);

  TZORPto fPoint;
};

/// All points of an item.
class TKDXElePosCmd final : public TKDXCmd {
 public:
  static constexpr int Kind = 9;
  /// `aIndex` only tells commands apart: 0 for all that move the item.
  static void AddCommand(TKDXBaseItem& aItem, int aIndex);
  void RestoreState() override;
  void FetchState() const override;

 private:
  TKDXElePosCmd(TKDXBaseItem& aItem, int aIndex);
  TKDXElePosCmd(TKDXBaseItem& aItem, int aIndex, TZORPtoA aPoints);

  TZORPtoA fPoints;
};

}  // namespace Zor::inline Base
