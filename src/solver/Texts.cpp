#include "solver/Texts.h"

namespace tessaly {

// The wording, slips included, is what users of the program have always read.
const std::array<std::string_view, 11> kWelcomeText = {
    "Welcome to Tessaly",
    "Purpose of this program is to demonstrate and help you solve a SuDoKu puzzle. This program will explain how a "
    "solution is being developed.",
    "Note that the algorithms used may not be an optimum way of solving a particular puzzle. Simple visual "
    "inspection may sometimes generate better clues. However, the systematic approach adapted by the program will "
    "help you develop and apply logical thinking behind solving SuDoKu.",
    "The program follows six basic rules for establishing choices:",
    "Rule 1: Consider each cell that has not been fixed. The cell can have any value 1 to 9. Examine area of the cell "
    "and from a choice of 1 to 9 exclude all numbers in its area. The remaining number(s) are the possible choices "
    "for the cell. Obviously if the choice turns out to be just one number then we have a solution for the cell.",
    "Rule 2: When one number appears in only one row or a column in a box then only that specific box can have the "
    "number.",
    "Rule 3: When two squares in the same area have two identical numbers then we can remove both numbers from other "
    "choices in the area. The program applies these rules in sequence and the resulting choices for cells are shown "
    "in top half of the screen. The cells that have fixed numbers are shown with gray background. The total number "
    "of choices in a box are shown on the right hand side.",
    "Rule 4: If all occurrences of a candidate within a row or column fall inside the same box, then other "
    "occurrences of that candidate can be removed from that box.",
    "Rule 5: If a candidate number appears only once in an area, that number must go in that square.",
    "Rule 6: If in an area n cells contain n same numbers, the numbers n can be removed from the area except from "
    "the n cells themselves",
    "Now select a puzzle# to solve and click Start to proceed.",
};

const std::array<std::string_view, 7> kApproachText = {
    "We will start the solution by examining the possible choices of numbers in a cell and in a box.",
    "There are 81 cells grouped into 9 boxes. Each cell is examined for possible choices of numbers 1 to 9 given "
    "that a choice cannot be duplicated in the row, in the column or in the box the cell is in. The row, column, or "
    "the box a cell is in will be referred to as an 'area' of the cell.",
    "The program uses rules 1 to 6 for establishing choices:",
    "Cells that have only one choice will be placed first. In case of several cells having this property, cells in "
    "boxes with least number of choices will be filled first. In case there are no 'single choice' cells, the "
    "program, we will look for a cell that has least number of choices located in a box with least number of "
    "choices. For such cells we fill the first number in the choice.",
    "Once a cell has been filled, it is taken as if it were a fixed cell. We then repeat the process by applying "
    "rules 1 to 6 and placing another cell. Process is continued until all cells have been filled.",
    "Invariably we will come up with situations when placing the first number in a sequence of choices for a cell "
    "will not lead to a solution. How we know that there is no solution that after applying rules 1 to 6, a cell "
    "ends with no choices. In this dead-end situation we revert back to the previous choice and try the second "
    "number in the sequence of its choices and repeat the process. This a typical 'brute force' approach that is "
    "most suited to computer programs.",
    "The solution may eventually take longer as against some other sophisticated techniques. However, this program "
    "is meant to illustrate how one might go about solving the puzzle",
};

}  // namespace tessaly
