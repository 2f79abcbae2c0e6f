#pragma once

#include <string_view>

#include "data/catalogue.h"

namespace zelvo::dialect {

// A small table, and what the office's conditions select of the six permits that the tests put into it. Every engine
// has to answer so.

inline constexpr Column columns[] = {{"PERMIT", ColumnType::Text, 1, 20}, {"OWNER", ColumnType::Text, 2, 40},
                                     {"MONTH", ColumnType::Text, 0, 8},   {"FEE", ColumnType::Number, 0, 8},
                                     {"FLAG", ColumnType::Integer, 0, 8}, {"VD3", ColumnType::Date, -2, 8},
                                     {"NOTES", ColumnType::Memo, 0, -1}};
inline constexpr std::string_view indexes[] = {"MONTH, FEE"};
inline const Table permits = {1, "db1.mdb", "BLDGPERM", "Permits     ", "PERMIT", "PERMIT", columns, indexes};

struct Case {
  const char* query;
  const char* permits;
};

inline constexpr Case conditionCases[] = {
    // how it may be written
    {"[PERMIT] = '25-1'", "25-1"},
    {"PERMIT='25-1'", "25-1"},
    {"[permit]='25-1'AND[FLAG]=1", "25-1"},
    {"  [PERMIT]\r\n=\t'25-1'  AND[OWNER]  like '%o''BRIEN%' ;", "25-1"},
    {"[PERMIT] = '25-1' or [PERMIT] = 'A-5' AND[FLAG] = 9", "25-1"},
    {"([PERMIT] = '25-1' or [PERMIT] = 'A-5') AND[FLAG] = 0", "A-5"},
    {"((([PERMIT] = '25-1')))", "25-1"},
    {"not [FLAG] = 0 and [PERMIT] <> '25-10'", "25-1"},
    // texts
    {"[PERMIT] = 'a-5'", "A-5"},
    {"[PERMIT] > '25-3'", "A-5 a-6"},
    {"[PERMIT] <= '25-10'", "25-1 25-10"},
    {"[OWNER] = 'désir'", "25-3"},
    {"[OWNER] = 'Étienne'", "a-6"},
    {"[OWNER] <> 'DÉSIRÉE'", "25-1 25-2 25-3 a-6"},
    {"[OWNER] <> ''", "25-1 25-2 25-3 25-10 a-6"},
    {"[NOTES] <> ''", "25-1 25-2 A-5 a-6"},
    {"[OWNER] = ''", ""},
    // like
    {"[OWNER] like '%SMITH%'", "25-2"},
    {"[OWNER] like '%désir%'", "25-3 25-10"},
    {"[OWNER] like '%DESIR%'", "25-3 25-10"},
    {"[OWNER] like 'ëtïènne'", "a-6"},
    {"[OWNER] like '%[è]s[i]r'", "25-3"},
    {"[OWNER] like 'd_SIR'", "25-3"},
    {"[OWNER] like 'smith'", ""},
    {"[OWNER] like 'Smith%j_hn'", "25-2"},
    {"[OWNER] like '[a-o]%'", "25-1 25-3 25-10 a-6"},
    {"[OWNER] like '[!a-o]%'", "25-2"},
    {"[OWNER] not like '%s%'", "25-1 a-6"},
    {"[NOTES] like '%100[%]%'", "25-2"},
    {"[NOTES] like '%[_]%'", "A-5"},
    {"[NOTES] like '%[d%'", "A-5"},
    {"[NOTES] like '%%'", "25-1 25-2 25-3 A-5 a-6"},
    {"[FEE] like '6%'", "25-1"},
    {"[FEE] like '60'", "25-1"},
    {"[VD3] like '3/9/2025%'", "25-1 25-2"},
    // numbers, and texts against numbers
    {"[FEE] > 60 or [FEE] = -3.2", "25-2 A-5"},
    {"[FEE] = '60.00'", "25-1"},
    {"[FEE] = 'x'", ""},
    {"[FEE] <> ''", "25-1 25-2 25-3 A-5 a-6"},
    {"[FEE] > 'x'", ""},
    {"[FLAG] = 1.0", "25-1"},
    {"[MONTH] = 3", "25-1 25-2 25-3"},
    {"[MONTH] = '3'", "25-1"},
    {"[MONTH] > 2.5e0", "25-1 25-2 25-3"},
    {"[MONTH] = 0", ""},
    {"[MONTH] <> 3", "25-10 A-5"},
    {"not [MONTH] = 3", "25-10 A-5"},
    // dates
    {"[VD3] = #03/09/2025#", "25-1"},
    {"[VD3] > #3/9/25#", "25-2 A-5 a-6"},
    {"[VD3] > #12/31/99# AND [VD3] < #12/31/2025#", "25-1 25-2"},
    {"[VD3] = '12/31/2025'", "A-5"},
    {"[VD3] = 'soon' or [VD3] > 'soon'", ""},
    {"[NOTES] = #01/01/2026#", ""},
    {"[VD3] <> ''", "25-1 25-2 25-3 A-5 a-6"},
    // nothing
    {"[OWNER] = null", ""},
    {"not [OWNER] = null", ""},
    {"[OWNER] <> null or [FLAG] = 2", "25-10"},
    {"[OWNER] is null", "A-5"},
    {"[FLAG] is not null and [FEE] is not null", "25-1 25-2 A-5 a-6"},
};

}  // namespace zelvo::dialect
