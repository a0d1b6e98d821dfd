// The sentences of the further techniques: one line naming the technique and
// its pattern in the log's plain style, with cells, rows, columns and boxes
// numbered as users see them.

#include <string>
#include <vector>

#include "solver/Narrator.h"
#include "solver/Techniques.h"

namespace tessaly {

namespace {

std::string number(int n) { return std::to_string(n); }

/// "a", "a and b", "a, b and c".
std::string joined(const std::vector<std::string>& items, std::string_view last = " and ") {
  std::string out;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) out += i + 1 == items.size() ? std::string(last) : std::string(", ");
    out += items[i];
  }
  return out;
}

std::vector<std::string> digitItems(std::uint16_t mask) {
  std::vector<std::string> items;
  for (int d = 1; d <= 9; ++d)
    if (mask & (1u << (d - 1))) items.push_back(number(d));
  return items;
}
std::string digitsText(std::uint16_t mask) { return joined(digitItems(mask)); }

std::string cellText(int cell) { return "cell " + number(cell + 1); }

/// "cell 5" or "cells 5, 6 and 14".
std::string cellsText(const std::vector<int>& cells) {
  std::vector<std::string> items;
  for (int c : cells) items.push_back(number(c + 1));
  return (cells.size() == 1 ? "cell " : "cells ") + joined(items);
}

const char* areaWord(int area) { return area < 9 ? "row" : area < 18 ? "col" : "box"; }
int areaNumber(int area) { return area % 9 + 1; }
std::string areaText(int area) { return std::string(areaWord(area)) + " " + number(areaNumber(area)); }

/// "rows 2 and 6" for areas of one kind.
std::string areasText(const std::vector<int>& areas) {
  if (areas.empty()) return {};
  std::vector<std::string> items;
  for (int a : areas) items.push_back(number(areaNumber(a)));
  return std::string(areaWord(areas.front())) + (areas.size() > 1 ? "s " : " ") + joined(items);
}

/// A chain node as a statement: "cell 12 is 5" or "5 is in cell 12 or 13";
/// negated: "cell 12 is not 5", "5 is in neither cell 12 nor 13".
std::string nodeText(const ChainNode& node, bool holds) {
  const std::string d = number(node.digit);
  if (node.cells.size() == 1) return cellText(node.cells.front()) + (holds ? " is " : " is not ") + d;
  std::vector<std::string> items;
  for (int c : node.cells) items.push_back(number(c + 1));
  if (holds) return d + " is in cell " + joined(items, " or ");
  if (node.cells.size() == 2) return d + " is in neither cell " + items[0] + " nor " + items[1];
  return d + " is in none of cells " + joined(items);
}

/// The chain read as a person follows it: the first link is strong, so "if
/// the first node is false, the second is true", then weak ("so the third
/// is false"), and so on to the last node, which ends the chain true.
std::string chainText(const std::vector<ChainNode>& chain) {
  if (chain.size() < 2) return {};
  std::string out = "if " + nodeText(chain.front(), false) + ", then " + nodeText(chain[1], true);
  for (std::size_t i = 2; i < chain.size(); ++i) out += ", so " + nodeText(chain[i], i % 2 == 1);
  out += "; so " + nodeText(chain.front(), true) + " or " + nodeText(chain.back(), true);
  return out;
}

std::string implicationText(const Implication& i) {
  return cellText(i.cell) + (i.placed ? " is " : " is not ") + number(i.digit);
}

std::string branchText(const Branch& b, bool unitForcing, bool first) {
  std::string out = "if ";
  out += unitForcing ? cellText(b.cell) + " is " + number(b.digit) : std::string(first ? cellText(b.cell) + " is " : "it is ") + number(b.digit);
  std::vector<std::string> items;
  for (const Implication& i : b.steps) items.push_back(implicationText(i));
  if (!items.empty()) out += ", then " + joined(items, ", ");  // one comma-separated sequence
  if (b.contradiction) {
    out += items.empty() ? ", then " : " and ";
    if (b.deadCell >= 0)
      out += cellText(b.deadCell) + " has no choice left";
    else
      out += number(b.deadDigit) + " has no place in " + areaText(b.deadArea);
  }
  return out;
}

std::string conclusionText(const TechniqueStep& step) {
  std::vector<std::string> items;
  for (const Candidate& p : step.placements) items.push_back(cellText(p.cell) + " is " + number(p.digit));
  for (const Candidate& e : step.eliminations) items.push_back(cellText(e.cell) + " is not " + number(e.digit));
  return joined(items);
}

/// A branch whose only conclusion is about its own cell ("if cell 8 is 1,
/// then cell 8 is not 4") says nothing a reader needs.
bool trivialBranch(const Branch& b) {
  return !b.contradiction && b.steps.size() == 1 && b.steps.front().cell == b.cell;
}

std::string forcingText(const TechniqueStep& step, bool unitForcing) {
  int alive = 0;
  for (const Branch& b : step.branches) alive += b.contradiction ? 0 : 1;
  // When one assumption is left standing, the contradictions are the reason;
  // a branch that only restates its own assumption is left out.
  std::string out;
  int told = 0;
  for (const Branch& b : step.branches) {
    if (!b.contradiction && (alive == 1 || trivialBranch(b))) continue;
    out += (out.empty() ? "" : "; ") + branchText(b, unitForcing, out.empty());
    told += b.contradiction ? 0 : 1;
  }
  return out + (told > 1 ? "; either way " : "; so ") + conclusionText(step);
}

}  // namespace

std::string narrateStep(const TechniqueStep& s) {
  using T = Technique;
  const std::string name(techniqueInfo(s.technique).name);
  const std::string unit = s.units.empty() ? std::string() : areaText(s.units.front());
  const std::string on = " on " + digitsText(s.digits);
  switch (s.technique) {
    case T::Rule1:
      return "Naked single: " + cellText(s.cells.front()) + " can only be " + digitsText(s.digits);
    case T::Rule5:
      return "Hidden single: in " + unit + ", " + digitsText(s.digits) + " fits only in " + cellText(s.cells.front());
    case T::Rule2:
      return "Pointing: in " + unit + ", " + digitsText(s.digits) + " lies only in " + areaText(s.units.back()) +
             ", " + cellsText(s.cells);
    case T::Rule4:
      return "Claiming: in " + unit + ", " + digitsText(s.digits) + " lies only in " + areaText(s.units.back()) +
             ", " + cellsText(s.cells);
    case T::Rule3:
    case T::Rule6:
      return std::string(s.technique == T::Rule3 ? "Naked pair " : "Naked subset ") + digitsText(s.digits) + " in " +
             unit + ": " + cellsText(s.cells) + " hold only these";
    case T::HiddenPair:
    case T::HiddenTriple:
    case T::HiddenQuad:
      return name + " " + digitsText(s.digits) + " in " + unit + ": they fit only in " + cellsText(s.cells);
    case T::NakedTriple:
    case T::NakedQuad:
      return name + " " + digitsText(s.digits) + " in " + unit + ": " + cellsText(s.cells) + " hold only these";
    case T::XWing:
    case T::Swordfish:
    case T::Jellyfish:
      return name + on + ": " + areasText(s.units) + ", " + areasText(s.coverUnits);
    case T::FinnedXWing:
    case T::SashimiXWing:
    case T::FinnedSwordfish:
    case T::SashimiSwordfish:
      return name + on + ": " + areasText(s.units) + ", " + areasText(s.coverUnits) + ", fin " + cellsText(s.fins);
    case T::Skyscraper:
    case T::TwoStringKite:
    case T::EmptyRectangle:
    case T::XChain:
    case T::XYChain:
    case T::AIC:
      return name + (s.technique == T::XYChain || s.technique == T::AIC ? std::string() : on) + ": " +
             chainText(s.chain);
    case T::XYWing:
      return name + " on " + number(s.zDigit) + ": pivot " + cellText(s.cells.at(0)) + " with " +
             digitsText(s.digits) + ", pincers " + cellsText({s.cells.at(1), s.cells.at(2)}) +
             ": one of the pincers is " + number(s.zDigit);
    case T::XYZWing:
      return name + " on " + number(s.zDigit) + ": pivot " + cellText(s.cells.at(0)) + " with " +
             digitsText(s.digits) + ", pincers " + cellsText({s.cells.at(1), s.cells.at(2)}) +
             ": one of the three is " + number(s.zDigit);
    case T::WWing: {
      std::vector<int> link;
      for (const ChainNode& n : s.chain) link.insert(link.end(), n.cells.begin(), n.cells.end());
      return name + on + ": " + cellsText(s.cells) + " hold only " + digitsText(s.digits) + ", and " +
             number(s.restricted) + " lies in " + cellsText(link) + ", one seeing each: one of " +
             cellsText(s.cells) + " is " + number(s.zDigit);
    }
    case T::UniqueRectangle1:
    case T::UniqueRectangle2:
    case T::UniqueRectangle4:
      return name + on + ": " + cellsText(s.cells) +
             "; the puzzle has one solution, so these corners cannot end with only " + digitsText(s.digits);
    case T::BugPlus1:
      return name + ": every open cell but " + cellText(s.cells.front()) +
             " has two choices; the puzzle has one solution, so it is " + digitsText(s.digits);
    case T::ColourTrap:
    case T::ColourWrap: {
      std::string out = name + on + ": colour one " + cellsText(s.groups.at(0).cells) + ", colour two " +
                        cellsText(s.groups.at(1).cells);
      return out + (s.technique == T::ColourTrap ? "; one of the colours holds " + digitsText(s.digits)
                                                 : "; colour one sees itself, so colour two holds " +
                                                       digitsText(s.digits));
    }
    case T::AlsXz:
      return name + ": " + cellsText(s.groups.at(0).cells) + " with " + digitsText(s.groups.at(0).digits) + " and " +
             cellsText(s.groups.at(1).cells) + " with " + digitsText(s.groups.at(1).digits) + " share " +
             number(s.restricted) + " only where they see each other, so one of them holds " + number(s.zDigit);
    case T::CellForcingChain:
      return name + " on " + cellText(s.cells.front()) + ": " + forcingText(s, false);
    case T::UnitForcingChain:
      return name + on + " in " + unit + ": " + forcingText(s, true);
  }
  return name;
}

}  // namespace tessaly
