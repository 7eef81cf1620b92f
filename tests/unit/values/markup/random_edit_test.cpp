// Random scripts of edits on random documents. After every step the table is what a fresh parse of the text
// makes, every element that is left has its index and its attributes, saved positions name what they named,
// and a step that returns false has changed nothing.
#include "support/markup_script.h"
#include "unit/values/markup/oracle.h"
#include "unit/values/markup/random.h"
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace brixen::lyr::gen::markup_test {
namespace {

constexpr const char* kTexts[] = {
    "x",
    "a < b & 'c' \"d\" > e",
    " y ",
    "]]>",
    "a longer text that moves everything after it",
    "\r\n z",
    "&amp;",
    "\xC3\xA4\xE3\x81\x82",
    "<e></e>",
};
constexpr int kKinds[] = {1, 2, 4, 8, 16, 32, 64};

class Script : private RandomMarkup {
public:
    explicit Script(unsigned seed) : RandomMarkup(seed) {
        markup.SetDoc(RandomDocument());
        EXPECT_TRUE(markup.IsWellFormed()) << markup.GetDoc() << markup.GetError();
    }

    void Step() {
        using Operation = void (Script::*)();
        static constexpr Operation kOperations[] = {
            &Script::Go,          &Script::Go,         &Script::Move,      &Script::Move,
            &Script::Save,        &Script::AddElem,    &Script::AddElem,   &Script::AddChild,
            &Script::AddChild,    &Script::AddNode,    &Script::AddNode,   &Script::AddSub,
            &Script::AddSub,      &Script::SetData,    &Script::SetData,   &Script::SetAtt,
            &Script::SetAtt,      &Script::SetChild,   &Script::RemoveAtt, &Script::RemoveElem,
            &Script::RemoveChild, &Script::RemoveNode,
        };
        before = StateOf(markup);
        expected = TreeOf(markup);
        indexes = IndexesOf(markup);
        tags = Tags();
        touched.clear();
        (this->*kOperations[Below(std::size(kOperations))])();
    }

    void Check() {
        SCOPED_TRACE("after " + what + (isDone ? ": done" : ": refused"));
        ASSERT_EQ(FreshDifference(markup), "") << markup.GetDoc();
        if (!isDone) {
            ASSERT_EQ(StateOf(markup), before);
        }
        DropEmpty();
        if (isDone) {
            ASSERT_EQ(TreeOf(markup), expected) << markup.GetDoc();
        }
        CheckElements();
        CheckNode();
        CheckSaved();
    }

    CMarkupSTL markup;

private:
    struct Saved {
        std::string parent, element, child;
    };

    // The cursor's places by name.
    std::string Parent() const { return NameOfElement(markup, markup.PosParent()); }
    std::string Element() const { return NameOfElement(markup, markup.Pos()); }
    std::string Child() const { return NameOfElement(markup, markup.PosChild()); }
    bool IsOnNode() const { return markup.NodeLength() > 0; }
    // A second element beside the root is in the table, but not in that of a fresh parse.
    bool WouldBeSecondRoot() const { return markup.PosParent() == 0 && markup.IsWellFormed(); }

    std::string PathTo(std::int32_t index) const {
        std::string path;
        for (; index != 0; index = markup.At(index).parent) path = "/" + NameOfElement(markup, index) + path;
        return path;
    }

    // Moves.
    void Go() {
        isDone = true;
        what = "going somewhere";
        if (indexes.empty()) return markup.ResetPos();
        const auto place = std::next(indexes.begin(), static_cast<std::ptrdiff_t>(Below(indexes.size())));
        ASSERT_TRUE(markup.FindElem(PathTo(place->second)));
        ASSERT_EQ(Element(), place->first);
    }
    void Move() {
        what = "a move";
        switch (Below(8)) {
        case 0: isDone = markup.IntoElem(); break;
        case 1: isDone = markup.OutOfElem(); break;
        case 2: isDone = markup.FindElem(); break;
        case 3: isDone = markup.FindChildElem(); break;
        case 4: isDone = markup.RestorePos(SavedName()); break;
        case 5: isDone = markup.FindNode(static_cast<int>(Below(128))) != 0; break;
        default: isDone = markup.FindNode(0) != 0; break;
        }
    }
    const char* SavedName() {
        static constexpr const char* kNames[] = {"", "one", "two", "three"};
        return Any(kNames);
    }
    void Save() {
        what = "saving";
        const char* const name = SavedName();
        isDone = markup.SavePos(name);
        ASSERT_TRUE(isDone);
        saved[name] = {Parent(), Element(), Child()};
    }

    // What is expected of the tree.
    void ExpectNew(const std::string& parent, const std::string& beside, bool isAfter,
                   const std::string& name) {
        std::vector<std::string>& children = expected[parent];
        auto place = std::find(children.begin(), children.end(), beside);
        if (beside.empty())
            place = isAfter ? children.end() : children.begin();
        else if (isAfter)
            ++place;
        children.insert(place, name);
    }
    void ExpectNewAtCursor(bool isAfter, const std::string& name) {
        // A node is after the current element, so that both sides of the node are too.
        const bool isAfterElement = IsOnNode() ? markup.Pos() != 0 : isAfter;
        ExpectNew(Parent(), Element(), isAfterElement, name);
    }
    void ExpectGone(const std::string& name) {
        for (auto& [parent, children] : expected) std::erase(children, name);
        const auto found = expected.find(name);
        if (found == expected.end()) return;
        const std::vector<std::string> children = found->second;
        for (const std::string& child : children) ExpectGone(child);
    }
    void DropEmpty() {
        std::erase_if(expected, [](const auto& family) { return family.second.empty(); });
    }
    std::string SiblingBefore(const std::string& name, const std::string& parent) {
        const std::vector<std::string>& children = expected[parent];
        const auto place = std::find(children.begin(), children.end(), name);
        return place == children.begin() ? "" : *std::prev(place);
    }

    // Edits.
    void AddElem() {
        const bool isAfter = OneIn(2);
        what = isAfter ? "AddElem" : "InsertElem";
        if (WouldBeSecondRoot()) return Go();
        const std::string name = NewName(), content = OneIn(2) ? "" : Any(kTexts);
        ExpectNewAtCursor(isAfter, name);
        isDone = isAfter ? markup.AddElem(name, content) : markup.InsertElem(name, content);
        ASSERT_TRUE(isDone) << before.document;
        ASSERT_EQ(Element(), name);
        ASSERT_EQ(markup.GetData(), content);
    }
    void AddChild() {
        const bool isAfter = OneIn(2);
        what = isAfter ? "AddChildElem" : "InsertChildElem";
        const std::string name = NewName(), content = OneIn(2) ? "" : Any(kTexts), element = Element();
        if (markup.Pos() != 0) ExpectNew(element, Child(), isAfter, name);
        isDone = isAfter ? markup.AddChildElem(name, content) : markup.InsertChildElem(name, content);
        if (!isDone) return;
        ASSERT_EQ(Element(), element);
        ASSERT_EQ(Child(), name);
        ASSERT_EQ(markup.GetChildData(), content);
    }
    std::string NodeText(int kind) {
        switch (kind) {
        case kMarkupElement: return NewName();
        case kMarkupWhiteSpace: return OneIn(2) ? " " : "\r\n\t";
        case kMarkupDocumentType: return "DOCTYPE a [ <!ELEMENT a ANY> ]";
        case kMarkupProcessingInstruction: return "go x='1'";
        case kMarkupComment: return OneIn(2) ? "" : " <c> ";
        default: return Any(kTexts);
        }
    }
    void AddNode() {
        const int kind = Any(kKinds);
        const bool isAfter = OneIn(2);
        what = (isAfter ? "AddNode " : "InsertNode ") + std::to_string(kind);
        if (kind == kMarkupElement && WouldBeSecondRoot()) return Go();
        const std::string text = NodeText(kind);
        if (kind == kMarkupElement) ExpectNewAtCursor(isAfter, text);
        isDone = isAfter ? markup.AddNode(kind, text) : markup.InsertNode(kind, text);
        if (!isDone) return;
        ASSERT_EQ(markup.NodeType(), kind);
        if (kind & (kMarkupCData | kMarkupProcessingInstruction | kMarkupComment | kMarkupText)) {
            ASSERT_EQ(markup.GetData(), text);
        }
    }
    void AddSub() {
        const bool isAfter = OneIn(2);
        what = isAfter ? "AddSubDoc" : "InsertSubDoc";
        if (WouldBeSecondRoot()) return Go();
        const std::string top = NewName(), child = NewName();
        const std::string kPieces[] = {
            "<" + top + ">t<" + child + "/></" + top + ">",
            "<" + top + "\n><!--c--><" + child + " x='1'></" + child + "> </" + top + " >\n",
            "<!--c--><" + top + "><" + child + "/></" + top + ">",
            "<" + top + "><" + child + "/>",
            "<" + top + "/><" + child + "/>",
            "<" + top + "/></" + Parent() + ">",
            "text",
            "</" + Parent() + ">",
        };
        const std::size_t piece = Below(std::size(kPieces));
        what += " " + kPieces[piece];
        ExpectNewAtCursor(isAfter, top);
        expected[top] = {child};
        isDone = isAfter ? markup.AddSubDoc(kPieces[piece]) : markup.InsertSubDoc(kPieces[piece]);
        ASSERT_TRUE(isDone == (piece < 3) || piece == 2) << before.document;
        if (isDone) {
            ASSERT_EQ(Element(), top);
        }
    }
    void SetData() {
        what = "SetData";
        const std::string text = markup.NodeType() > kMarkupText || OneIn(5) ? "" : Any(kTexts);
        touched = IsOnNode() ? "" : Element();
        const bool hasChildren = !IsOnNode() && expected.count(Element()) > 0;
        // A text that becomes empty is no node any more.
        const bool isVanishing = text.empty() && (markup.NodeType() & (kMarkupText | kMarkupWhiteSpace)) != 0;
        const bool wasOnDocumentType = markup.NodeType() == kMarkupDocumentType;
        if (wasOnDocumentType) return Go();
        isDone = markup.SetData(text, OneIn(3));
        if (hasChildren) {
            ASSERT_FALSE(isDone);
        }
        if (isDone && !isVanishing) {
            ASSERT_EQ(markup.GetData(), text);
        }
    }
    void SetAtt() {
        what = "SetAttrib";
        touched = Element();
        const char* const name = Any(kAttributes);
        const std::string value = OneIn(4) ? "" : Any(kTexts);
        isDone = markup.SetAttrib(name, value);
        if (isDone) {
            ASSERT_EQ(markup.GetAttrib(name), value) << markup.GetDoc();
        }
    }
    void SetChild() {
        what = "SetChildAttrib";
        touched = Child();
        const char* const name = Any(kAttributes);
        const std::string value = Any(kTexts);
        isDone = markup.SetChildAttrib(name, value);
        if (isDone) {
            ASSERT_EQ(markup.GetChildAttrib(name), value) << markup.GetDoc();
        }
    }
    void RemoveAtt() {
        what = "RemoveAttrib";
        touched = Element();
        const char* const name = Any(kAttributes);
        isDone = markup.RemoveAttrib(name);
        if (isDone) {
            ASSERT_EQ(markup.GetAttrib(name), "") << markup.GetDoc();
        }
    }
    void RemoveElem() {
        what = "RemoveElem";
        if (IsOnNode()) return RemoveNode();
        const std::string name = Element(), front = name.empty() ? "" : SiblingBefore(name, Parent());
        ExpectGone(name);
        isDone = markup.RemoveElem();
        ASSERT_EQ(isDone, !name.empty());
        if (isDone) {
            ASSERT_EQ(Element(), front);
        }
    }
    void RemoveChild() {
        what = "RemoveChildElem";
        const std::string name = Child(), front = name.empty() ? "" : SiblingBefore(name, Element());
        ExpectGone(name);
        isDone = markup.RemoveChildElem();
        ASSERT_EQ(isDone, !name.empty());
        if (isDone) {
            ASSERT_EQ(Child(), front);
        }
    }
    void RemoveNode() {
        what = "RemoveNode";
        const bool isElement = markup.NodeType() == kMarkupElement;
        if (isElement) ExpectGone(Element());
        isDone = markup.RemoveNode();
        ASSERT_EQ(isDone, markup.GetDoc() != before.document);
    }

    // Checks.
    std::map<std::string, std::string> Tags() const {
        std::map<std::string, std::string> found;
        for (const auto& [name, index] : IndexesOf(markup)) {
            const ElemPos& entry = markup.At(index);
            std::string tag =
                markup.GetDoc().substr(static_cast<std::size_t>(entry.startTagLeft),
                                       static_cast<std::size_t>(entry.startTagRight - entry.startTagLeft));
            if (tag.back() == '/') tag.pop_back();
            found[name] = tag;
        }
        return found;
    }
    void CheckElements() {
        const auto newTags = Tags();
        for (const auto& [name, index] : IndexesOf(markup)) {
            const auto was = indexes.find(name);
            if (was == indexes.end()) continue; // it is new
            ASSERT_EQ(was->second, index) << name;
            if (name != touched) {
                ASSERT_EQ(newTags.at(name), tags.at(name));
            }
        }
        for (const std::int32_t place : {markup.PosParent(), markup.Pos(), markup.PosChild()}) {
            const auto live = IndexesOf(markup);
            ASSERT_TRUE(place == 0 ||
                        std::any_of(live.begin(), live.end(),
                                    [&](const auto& element) { return element.second == place; }))
                << "the cursor is on an element that is gone";
        }
    }
    void CheckNode() {
        if (!IsOnNode()) return;
        const auto offset = static_cast<std::size_t>(markup.NodeOffset());
        const auto length = static_cast<std::size_t>(markup.NodeLength());
        ASSERT_LE(offset + length, markup.GetDoc().size());
        if (markup.NodeType() & (kMarkupText | kMarkupWhiteSpace)) {
            ASSERT_GT(markup.GetDoc().find('<', offset), offset + length - 1);
        } else {
            OracleReader reader(markup.GetDoc(), offset);
            ASSERT_EQ(reader.ReadNode(), markup.NodeType()) << markup.GetDoc();
            ASSERT_EQ(reader.Place(), offset + length) << markup.GetDoc();
        }
        if (markup.Pos() != 0) {
            ASSERT_GT(markup.NodeOffset(), markup.At(markup.Pos()).endTagRight);
        }
    }
    void CheckSaved() {
        const auto live = IndexesOf(markup);
        const auto IsLive = [&](const std::string& name) { return name.empty() || live.count(name) > 0; };
        for (const auto& [name, place] : saved) {
            CMarkupSTL probe(markup);
            ASSERT_EQ(probe.RestorePos(name.c_str()),
                      IsLive(place.parent) && IsLive(place.element) && IsLive(place.child))
                << "saved as '" << name << "' in " << place.parent << " on " << place.element;
            if (!(StateOf(probe) == StateOf(markup))) {
                ASSERT_EQ(NameOfElement(probe, probe.PosParent()), place.parent);
                ASSERT_EQ(NameOfElement(probe, probe.Pos()), place.element);
                ASSERT_EQ(NameOfElement(probe, probe.PosChild()), place.child);
            }
        }
    }

    std::map<std::string, Saved> saved;
    std::string what;    // the last step
    std::string touched; // the element whose start tag it may have changed
    bool isDone = true;
    State before;
    Tree expected;
    std::map<std::string, std::int32_t> indexes;
    std::map<std::string, std::string> tags;
};

TEST(MarkupRandomEdit, TheTableIsThatOfAFreshParseAfterEveryEdit) {
    for (unsigned seed = 0; seed < 800 && !HasFatalFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Script script(seed);
        for (int step = 0; step < 40 && !HasFatalFailure(); ++step) {
            SCOPED_TRACE("step " + std::to_string(step) + " on " + script.markup.GetDoc());
            script.Step();
            if (!HasFatalFailure()) script.Check();
        }
    }
}

// Beside the root the text is not parsed, so it may hold anything, and an edit may put elements between.
TEST(MarkupRandomEdit, TheTableIsSoundBesideTheRootToo) {
    static constexpr const char* kBroken[] = {"",     "<!--", "<?x",  "<!D [", "<![", "<!D '", "<b>",
                                              "</b>", "<",    "text", "-->",   "?>",  "]]>",   "]>"};
    for (unsigned seed = 0; seed < 3000 && !HasFailure(); ++seed) {
        RandomMarkup random(seed);
        std::string text = random.OneIn(4) ? "<r><a/></r>" : random.RandomDocument();
        if (random.OneIn(8)) text.clear();
        CMarkupSTL markup = Parsed(text + random.Any(kBroken) + random.Any(kBroken));
        std::string bytes(80, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random.Below(256));
        ASSERT_EQ(MarkupScript(markup, bytes).Run(), "") << "seed " << seed;
    }
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
