#include "tables/Csv/detail/CsvSource.h"

#include <map>
#include <utility>

#include "platform/CodePage.h"
#include "platform/Encoding.h"
#include "tables/Csv/TCsvEncodingGuess.h"
#include "tables/Csv/detail/CsvCells.h"

namespace vx::detail {

namespace {

constexpr int64_t kLargeFile = 1024 * 1024;  // from here on rows come by the ten thousand
constexpr size_t kSample = 256 * 1024;

const TCodePage& PageOf(const TCsvForm& Form) {
  return Form.CodePage == 0 ? GetSystemCodePage() : *TCodePage::Find(Form.CodePage);
}

const TEncoding& EncodingOf(TCsvEncoding Encoding) {
  return Encoding == ceUtf8    ? TEncoding::Utf8()
         : Encoding == ceUtf16 ? TEncoding::Utf16()
                               : TEncoding::Utf16BigEndian();
}

std::string ReadSample(TCsvInput& Input) {
  // Small files need no large sample; one byte more than the file shows that it has ended.
  std::string sample(static_cast<size_t>(std::clamp<int64_t>(Input.GetSize() + 1, 4096, kSample)), '\0');
  size_t size = 0;
  while (size < kSample) {
    if (size == sample.size()) sample.resize(std::min(2 * size, kSample));
    const size_t count = Input.Read(sample.data() + size, sample.size() - size);
    if (count == 0) break;
    size += count;
  }
  sample.resize(size);
  return sample;
}

// Looks at the whole input, as far as it is needed to be sure.
TCsvEncodingGuess LookThrough(TCsvInput& Input, std::string Piece) {
  TCsvEncodingGuess guess(Piece, Input.GetSize());
  for (bool isLast = Piece.size() < kSample;;) {
    const size_t used = guess.Look(Piece, isLast);
    if (guess.IsSure() || isLast) return guess;
    std::string next = Piece.substr(used);
    const size_t had = next.size();
    next.resize(had + kSample);
    const size_t count = Input.Read(next.data() + had, kSample);
    next.resize(had + count);
    isLast = count == 0;
    Piece = std::move(next);
  }
}

// Fills in what the form leaves open, and gives the length of the mark.
size_t FindOut(TCsvInput& Input, TCsvForm& Form) {
  const std::string sample = ReadSample(Input);
  size_t mark = 0;
  if (Form.Encoding == ceGuess) {
    const TCsvEncodingGuess guess = LookThrough(Input, sample);
    Form.Encoding = guess.Get() == ceGuess ? ceUtf8 : guess.Get();
    if (Form.Encoding == ceCodePage && Form.CodePage == 0) Form.CodePage = GuessCodePage(sample);
  }
  if (Form.Encoding != ceCodePage) {
    const std::string_view bytes = EncodingOf(Form.Encoding).Mark();
    if (std::string_view(sample).starts_with(bytes)) mark = bytes.size();
  }
  Form.HasMark = mark > 0;
  if (Form.Separator == 0) {
    const std::string_view bytes = std::string_view(sample).substr(mark);
    const bool isPage = Form.Encoding == ceCodePage;
    Form.Separator =
        GuessCsvSeparator(isPage ? PageOf(Form).Decode(bytes) : EncodingOf(Form.Encoding).Decode(bytes), Form.Quote);
  }
  return mark;
}

template <typename TUnit>
TCsvMarks<TUnit> MarksOf(const TCsvForm& Form) {
  TCsvMarks<TUnit> marks;
  marks.Quote = static_cast<TUnit>(Form.Quote);
  marks.HasQuote = Form.Quote != 0;
  if constexpr (sizeof(TUnit) == 2) {
    marks.Separator[0] = Form.Separator;
  } else if (Form.Encoding == ceUtf8) {
    std::string bytes;
    AppendUtf8(bytes, {&Form.Separator, 1});
    std::copy(bytes.begin(), bytes.end(), marks.Separator.begin());
    marks.SeparatorLength = bytes.size();
  } else if (PageOf(Form).CanEncode(Form.Separator)) {
    marks.Separator[0] = PageOf(Form).EncodeUnit(Form.Separator);
  }
  return marks;
}

// Counts lines and columns on the way through a row.
template <typename TUnit>
class TCsvPlace {
 public:
  TCsvPlace(const TUnit* Start, int64_t Line, bool IsUtf8) : FPos(Start), FLine(Line), FIsUtf8(IsUtf8) {}
  // Goes on to a unit at or behind the one before.
  void GoTo(const TUnit* Unit) {
    for (; FPos < Unit; ++FPos) {
      const bool isInCrLf = *FPos == '\r' && FPos[1] == '\n';
      if ((*FPos == '\n' || *FPos == '\r') && !isInCrLf) {
        ++FLine;
        FColumn = 1;
      } else {
        FColumn += IsCharacter();
      }
    }
  }
  int64_t Line() const noexcept { return FLine; }
  int64_t Column() const noexcept { return FColumn; }

 private:
  bool IsCharacter() const {
    if constexpr (sizeof(TUnit) == 2) return *FPos < 0xDC00 || *FPos >= 0xE000;
    return !FIsUtf8 || (*FPos & 0xC0) != 0x80;
  }
  const TUnit* FPos;
  int64_t FLine, FColumn = 1;
  bool FIsUtf8;
};

template <typename TUnit, typename TCells>
class TCsvSourceOf : public TCsvSource {
 public:
  template <typename... TMore>
  TCsvSourceOf(TCsvInput Input, const TCsvForm& AForm, size_t Mark, bool AreMany, TMore... More)
      : TCsvSource(std::move(Input), AreMany),
        FCells(FMemory.Bulk(), static_cast<TUnit>(AForm.Quote), More...),
        FMarks(MarksOf<TUnit>(AForm)),
        FBuffer(FInput, AForm.Encoding == ceUtf16BigEndian) {
    FInput.SetPosition(Mark);
    Form = AForm;
  }

  bool Next() override {
    return Walk(FCells, [&](const TUnit* first) {
      if (FCells.FoundCount > 0) Report(first);
    });
  }
  std::span<const String> Cells() override {
    // The filler keeps the texts, as nobody takes them.
    std::span<const String> cells;
    FCells.Filler.GiveTo([&](const TEntries& entries) { cells = entries.Texts(); });
    return cells;
  }
  std::unique_ptr<TVxStringList> TakeRow() override {
    auto row = FMemory.NewRow();
    FCells.Filler.GiveTo([&](TEntries& cells) { row->TakeCells(cells, FMemory.Bulk()); });
    return row;
  }
  int Skip() override {
    TCounter counter;
    return Walk(counter, [](const TUnit*) {}) ? counter.Cells : -1;
  }

 private:
  struct TCounter : TCsvCellCount {
    void Drop() noexcept { Cells = 0; }
  };

  // Done gets where the row began, while its units are still there.
  template <typename TSink, typename TDone>
  bool Walk(TSink& Sink, TDone Done) {
    for (;;) {
      Sink.Drop();
      if (FBuffer.Pos() != FBuffer.End()) {
        TCsvWalk<TUnit, TSink> walk(FMarks, FBuffer.End(), FBuffer.IsLast(), Sink);
        const TUnit* const first = FBuffer.Pos();
        const TUnit* const next = walk.Row(first);
        if (next != nullptr) {
          if (Row < 0) FindLineEnd(first, next);
          ++Row;
          Line = LinesDone + 1;
          Done(first);
          LinesDone += walk.Lines();
          FBuffer.Use(next);
          return true;
        }
      } else if (FBuffer.IsLast()) {
        return false;
      }
      if (!FBuffer.Fill() && FBuffer.HasHalfUnit()) ReportHalfUnit();
    }
  }
  // The first line's end is taken for those of all.
  void FindLineEnd(const TUnit* First, const TUnit* Next) {
    if (Next[-1] == '\r') Form.LineEnd = clCr;
    if (Next[-1] == '\n') Form.LineEnd = Next - First > 1 && Next[-2] == '\r' ? clCrLf : clLf;
  }
  void Report(const TUnit* First) {
    Faults.Count += FCells.FoundCount;
    TCsvPlace<TUnit> place(First, Line, Form.Encoding == ceUtf8);
    const auto order = [](const auto& a, const auto& b) { return a.At < b.At; };
    std::stable_sort(FCells.Found.begin(), FCells.Found.end(), order);
    for (const TCsvFound<TUnit>& found : FCells.Found) {
      if (Faults.First.size() == TCsvFaults::kMostKept) return;
      place.GoTo(found.At);
      Faults.First.push_back({found.Kind, found.Col, Row, place.Line(), place.Column()});
    }
  }
  // The last byte of an odd number stands behind all rows.
  void ReportHalfUnit() {
    ++Faults.Count;
    if (Faults.First.size() < TCsvFaults::kMostKept) {
      Faults.First.push_back({cfInvalidBytes, 0, Row + 1, LinesDone + 1, 1});
    }
  }

  TCells FCells;
  TCsvMarks<TUnit> FMarks;
  TCsvBuffer<TUnit> FBuffer;
};

}  // namespace

TCsvSource::TCsvSource(TCsvInput Input, bool AreMany)
    : FInput(std::move(Input)), FMemory(AreMany && FInput.GetSize() >= kLargeFile) {}

std::unique_ptr<TCsvSource> TCsvSource::New(TCsvInput Input, const TCsvForm& Form, bool AreMany) {
  CheckCsvForm(Form);
  TCsvForm form = Form;
  const size_t mark = FindOut(Input, form);
  if (form.Encoding == ceUtf16 || form.Encoding == ceUtf16BigEndian) {
    return std::make_unique<TCsvSourceOf<char16_t, TCsvUnitCells>>(std::move(Input), form, mark, AreMany);
  }
  const TCodePage* page = form.Encoding == ceUtf8 ? nullptr : &PageOf(form);
  return std::make_unique<TCsvSourceOf<unsigned char, TCsvByteCells>>(std::move(Input), form, mark, AreMany, page);
}

char16_t GuessCsvSeparator(std::u16string_view Sample, char16_t Quote) {
  constexpr int kRows = 100;
  std::vector<char16_t> units(Sample.begin(), Sample.end());
  units.resize(Sample.size() + kCsvPadding);
  const char16_t* const end = units.data() + Sample.size();
  units[Sample.size()] = '\n';
  char16_t best = u',';
  int bestRows = 0;
  for (char16_t candidate : {u'\x1B', u'\t', u';', u',', u'|'}) {
    if (candidate == Quote) continue;
    TCsvMarks<char16_t> marks{{candidate}, 1, Quote, Quote != 0};
    std::map<int, int> rowsByCells;
    const char16_t* pos = units.data();
    for (int rows = 0; rows < kRows && pos != end; ++rows) {
      TCsvCellCount row;
      pos = TCsvWalk<char16_t, TCsvCellCount>(marks, end, true, row).Row(pos);
      if (row.Cells > 1) ++rowsByCells[row.Cells];
    }
    for (auto [cells, count] : rowsByCells) {
      if (count <= bestRows) continue;
      best = candidate;
      bestRows = count;
    }
  }
  return best;
}

}  // namespace vx::detail
