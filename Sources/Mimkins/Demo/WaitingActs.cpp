#include "Demo/ScriptActs.h"

namespace mimkins::demo {

namespace {

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;

constexpr const char* question =
    R"({"questions":[{"question":"Which colour?","header":"Colour","options":[)"
    R"({"label":"Red","description":"Warm"},{"label":"Blue","description":"Cool"}],"multiSelect":false}]})";
constexpr const char* plan = R"({"plan":"1. Split the reader\n2. Test each half\n3. Put them together"})";

} // namespace

Act permissionAct() {
    return {
        "permission",
        38 * minute,
        {
            {0, Deed::prompts, "", "", "Move the basket to the new checkout.", ""},
            {60, Deed::calls, "migrate", "Bash",
             R"({"command":"npm run migrate -- --dry-run","description":"Try the migration"})", ""},
            {61, Deed::asks, "migrate", "", "", ""},
            {67, Deed::reminds, "migrate", "", "", ""},
            {360, Deed::waitsSince, "", "", "", "", 15 * minute},
            {1'080, Deed::grants, "migrate", "", "", ""},
            {1'320, Deed::returns, "migrate", "", "12 tables would change", ""},
            {1'440, Deed::calls, "notes", "Write", R"({"file_path":"$DIR/NOTES.md","content":"Twelve."})",
             ""},
            {1'444, Deed::edits, "", "NOTES.md", "", ""},
            {1'445, Deed::returns, "notes", "", "Written.", ""},
            {1'500, Deed::stops, "", "", "Twelve tables would change; nothing is lost.", ""},
            {2'160, Deed::commits, "", "", "Note what the migration changes", ""},
        }};
}

Act questionAct() {
    return {
        "question",
        32 * minute,
        {
            {0, Deed::prompts, "", "", "Pick a layout for the archive.", ""},
            {120, Deed::calls, "ask", "AskUserQuestion", question, ""},
            {121, Deed::asks, "ask", "", "", ""},
            {127, Deed::reminds, "ask", "", "", ""},
            {840, Deed::returns, "ask", "", "Your questions have been answered: Red.", ""},
            {900, Deed::calls, "paint", "mcp__paintbox__mix", R"({"query":"red"})", ""},
            {1'080, Deed::returns, "paint", "", "#c03028", ""},
            {1'200, Deed::stops, "", "", "Red it is.", ""},
            {1'620, Deed::looks, "", "", "", ""},
        }};
}

Act planAct() {
    return {
        "plan",
        44 * minute,
        {
            {0, Deed::prompts, "", "", "How would you split the reader?", ""},
            {240, Deed::calls, "plan", "ExitPlanMode", plan, ""},
            {241, Deed::asks, "plan", "", "", ""},
            {420, Deed::waitsSince, "", "", "", "", hour},
            {1'320, Deed::grants, "plan", "", "", ""},
            {1'322, Deed::returns, "plan", "", "User has approved your plan.", ""},
            {1'440, Deed::calls, "split", "Edit",
             R"({"file_path":"$DIR/src/reader.cpp","old_string":"line 2","new_string":"line two"})", ""},
            {1'444, Deed::edits, "", "src/reader.cpp", "", ""},
            {1'445, Deed::returns, "split", "", "The file has been updated.", ""},
            {1'560, Deed::stops, "", "", "The reader has two halves now.", ""},
            {2'460, Deed::commits, "", "", "Split the reader", ""},
        }};
}

Act dialogAct() {
    return {
        "dialog",
        30 * minute,
        {
            {0, Deed::prompts, "", "", "Sort the letters by year.", ""},
            {60, Deed::calls, "list", "Glob", R"({"pattern":"letters/*"})", ""},
            {64, Deed::returns, "list", "", "letters/1987", ""},
            {240, Deed::opensDialog, "", "", "dialog open", ""},
            {900, Deed::closesDialog, "", "", "", ""},
            {1'200, Deed::interrupts, "", "", "", ""},
            {1'560, Deed::looks, "", "", "", ""},
        }};
}

Act elicitationAct() {
    return {
        "elicitation",
        34 * minute,
        {
            {0, Deed::prompts, "", "", "Send the beds to the printer.", ""},
            {60, Deed::calls, "print", "mcp__printer__print", R"({"query":"beds"})", ""},
            {180, Deed::elicits, "print", "", "The printer asks for the size of the paper", ""},
            {360, Deed::waitsSince, "", "", "", "", day},
            {1'200, Deed::returns, "print", "", "Printed.", ""},
            {1'320, Deed::stops, "", "", "Printed on the large paper.", ""},
        }};
}

} // namespace mimkins::demo
