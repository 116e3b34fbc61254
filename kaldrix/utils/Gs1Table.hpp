// The application identifiers of the GS1 standard, section 3: what belongs behind each.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace Zor::inline Utils {

/// What the characters of a part are: digits, the sets of 82 and of 39 characters, base 64 for file names.
enum TGs1Set : std::uint8_t { gsDigits, gs82, gs39, gs64 };

/// What is checked beside characters and length.
enum TGs1Check : std::uint8_t {
  gcNone,
  gcDigit,    ///< the last is the check digit of the others
  gcDate,     ///< YYMMDD
  gcDate00,   ///< YYMMDD, where a day 00 stands for the whole month
  gcTime,     ///< hh or hhmm, as long as the part
  gcMinutes,  ///< mm or mmss
  gcTriples,  ///< of three digits each
  gcMinus     ///< a minus sign
};

/// A part of the data, from `least` to `most` characters; the last part of a row may vary.
struct TGs1Part {
  TGs1Set set = gsDigits;
  std::uint8_t least = 0, most = 0;  ///< most 0: there is no such part
  TGs1Check check = gcNone;
};

/// Identifiers each digit of which lies between those of `first` and `last`, and what stands behind them.
struct TGs1Row {
  std::string_view first, last;
  std::array<TGs1Part, 3> parts{};
};

namespace Gs1Parts {

constexpr TGs1Part N(std::uint8_t aCount, TGs1Check aCheck = gcNone) {
  return {gsDigits, aCount, aCount, aCheck};
}
constexpr TGs1Part UpToN(std::uint8_t aMost) { return {gsDigits, 1, aMost}; }
constexpr TGs1Part X(std::uint8_t aCount) { return {gs82, aCount, aCount}; }
constexpr TGs1Part UpToX(std::uint8_t aMost) { return {gs82, 1, aMost}; }
/// May be left out.
constexpr TGs1Part Optional(TGs1Part aPart) { return {aPart.set, 0, aPart.most, aPart.check}; }
/// A number with its check digit.
constexpr TGs1Part Key(std::uint8_t aCount) { return N(aCount, gcDigit); }
constexpr TGs1Part Date = N(6, gcDate), Month = N(6, gcDate00), Hour = N(2, gcTime), Time = N(4, gcTime);
constexpr TGs1Part Countries{gsDigits, 3, 15, gcTriples};

inline constexpr auto Rows = std::to_array<TGs1Row>({
    // Keys and what belongs to a lot.
    {"00", "00", {Key(18)}},
    {"01", "03", {Key(14)}},
    {"10", "10", {UpToX(20)}},
    {"11", "13", {Month}},
    {"15", "17", {Month}},
    {"20", "20", {N(2)}},
    {"21", "22", {UpToX(20)}},
    {"235", "235", {UpToX(28)}},
    {"240", "241", {UpToX(30)}},
    {"242", "242", {UpToN(6)}},
    {"243", "243", {UpToX(20)}},
    {"250", "251", {UpToX(30)}},
    {"253", "253", {Key(13), Optional(UpToX(17))}},
    {"254", "254", {UpToX(20)}},
    {"255", "255", {Key(13), Optional(UpToN(12))}},
    // Measures, with the place of the decimal point as last digit.
    {"30", "30", {UpToN(8)}},
    {"3100", "3165", {N(6)}},
    {"3200", "3295", {N(6)}},
    {"3300", "3375", {N(6)}},
    {"3400", "3495", {N(6)}},
    {"3500", "3575", {N(6)}},
    {"3600", "3695", {N(6)}},
    {"37", "37", {UpToN(8)}},
    {"3900", "3909", {UpToN(15)}},
    {"3910", "3919", {N(3), UpToN(15)}},
    {"3920", "3929", {UpToN(15)}},
    {"3930", "3939", {N(3), UpToN(15)}},
    {"3940", "3943", {N(4)}},
    {"3950", "3955", {N(6)}},
    // Orders, places and transport.
    {"400", "401", {UpToX(30)}},
    {"402", "402", {Key(17)}},
    {"403", "403", {UpToX(30)}},
    {"410", "417", {Key(13)}},
    {"420", "420", {UpToX(20)}},
    {"421", "421", {N(3), UpToX(9)}},
    {"422", "422", {N(3)}},
    {"423", "423", {Countries}},
    {"424", "424", {N(3)}},
    {"425", "425", {Countries}},
    {"426", "426", {N(3)}},
    {"427", "427", {UpToX(3)}},
    {"4300", "4301", {UpToX(35)}},
    {"4302", "4306", {UpToX(70)}},
    {"4307", "4307", {X(2)}},
    {"4308", "4308", {UpToX(30)}},
    {"4309", "4309", {N(20)}},
    {"4310", "4311", {UpToX(35)}},
    {"4312", "4316", {UpToX(70)}},
    {"4317", "4317", {X(2)}},
    {"4318", "4318", {UpToX(20)}},
    {"4319", "4319", {UpToX(30)}},
    {"4320", "4320", {UpToX(35)}},
    {"4321", "4323", {N(1)}},
    {"4324", "4325", {Month, N(4)}},  // a time 9999 stands for none
    {"4326", "4326", {Date}},
    {"4330", "4333", {N(6), {gs82, 0, 1, gcMinus}}},
    // What a trade item is.
    {"7001", "7001", {N(13)}},
    {"7002", "7002", {UpToX(30)}},
    {"7003", "7003", {Date, Time}},
    {"7004", "7004", {UpToN(4)}},
    {"7005", "7005", {UpToX(12)}},
    {"7006", "7006", {Date}},
    {"7007", "7007", {Date, Optional(Date)}},
    {"7008", "7008", {UpToX(3)}},
    {"7009", "7009", {UpToX(10)}},
    {"7010", "7010", {UpToX(2)}},
    {"7011", "7011", {Date, Optional(Time)}},
    {"7020", "7022", {UpToX(20)}},
    {"7023", "7023", {UpToX(30)}},
    {"7030", "7039", {N(3), UpToX(27)}},
    {"7040", "7040", {N(1), X(3)}},
    {"7041", "7041", {UpToX(4)}},
    {"710", "717", {UpToX(20)}},
    {"7230", "7239", {X(2), UpToX(28)}},
    {"7240", "7240", {UpToX(20)}},
    {"7241", "7241", {N(2)}},
    {"7242", "7242", {UpToX(25)}},
    {"7250", "7250", {N(8)}},
    {"7251", "7251", {N(12)}},
    {"7252", "7252", {N(1)}},
    {"7253", "7254", {UpToX(40)}},
    {"7255", "7255", {UpToX(10)}},
    {"7256", "7256", {UpToX(90)}},
    {"7257", "7257", {UpToX(70)}},
    {"7258", "7258", {X(3)}},
    {"7259", "7259", {UpToX(40)}},
    // Everything else.
    {"8001", "8001", {N(14)}},
    {"8002", "8002", {UpToX(20)}},
    {"8003", "8003", {Key(14), Optional(UpToX(16))}},
    {"8004", "8004", {UpToX(30)}},
    {"8005", "8005", {N(6)}},
    {"8006", "8006", {Key(14), N(4)}},
    {"8007", "8007", {UpToX(34)}},
    {"8008", "8008", {Date, Hour, {gsDigits, 0, 4, gcMinutes}}},
    {"8009", "8009", {UpToX(50)}},
    {"8010", "8010", {{gs39, 1, 30}}},
    {"8011", "8011", {UpToN(12)}},
    {"8012", "8012", {UpToX(20)}},
    {"8013", "8014", {UpToX(25)}},
    {"8017", "8018", {Key(18)}},
    {"8019", "8019", {UpToN(10)}},
    {"8020", "8020", {UpToX(25)}},
    {"8026", "8026", {Key(14), N(4)}},
    {"8030", "8030", {{gs64, 1, 90}}},
    {"8110", "8110", {UpToX(70)}},
    {"8111", "8111", {N(4)}},
    {"8112", "8112", {UpToX(70)}},
    {"8200", "8200", {UpToX(70)}},
    {"90", "90", {UpToX(30)}},
    {"91", "99", {UpToX(90)}},
});

}  // namespace Gs1Parts

inline constexpr const auto& Gs1Table = Gs1Parts::Rows;

/// Fields whose identifier begins so have a length of their own, so that no separator stands behind them
/// (section 7.8, table of element strings with predefined length).
inline constexpr auto Gs1Predefined =
    std::to_array<std::string_view>({"00", "01", "02", "03", "04", "11", "12", "13", "14", "15", "16",
                                     "17", "18", "19", "20", "31", "32", "33", "34", "35", "36", "41"});

/// Rows rise, so that no identifier stands twice.
constexpr bool Gs1RowsRise() {
  for (std::size_t i = 0; i < Gs1Table.size(); ++i) {
    const TGs1Row& row = Gs1Table[i];
    if (row.first.size() != row.last.size() || row.last < row.first) return false;
    if (i > 0 && row.first <= Gs1Table[i - 1].last) return false;
  }
  return true;
}
static_assert(Gs1RowsRise());

}  // namespace Zor::inline Utils
