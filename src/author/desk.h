// The bench as its window shows it, without the window: which table, entry, kind and step are chosen, what the list
// says, and every field and button as data with what it does. A window shows it and calls it, so does a test. Called
// between two frames only.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "author/bench.h"
#include "author/check_stage.h"
#include "author/edit_entries.h"
#include "author/field_drawing.h"
#include "author/try_out.h"

enum class DeskColumn { number, frame, picture, name, x, y, counter, power };
inline constexpr int kDeskColumns = 8;

// Where a field or a button stands.
enum class DeskPlace { entry, range, step, kind, start, history };

// A number, or a word that stands for one. `store` gives an empty text, or why it was refused; then nothing has
// changed.
struct DeskField {
    DeskPlace place;
    std::string name;
    std::string tip;  // unit and range
    std::function<std::string()> text;
    std::function<std::string(const std::string&)> store;
};

struct DeskButton {
    DeskPlace place;
    std::string caption;
    std::string tip;
    std::string key;  // "Ctrl+D"; empty: none
    std::function<std::string()> press;
};

// A question to the author with two answers, shown until one is given.
struct DeskOffer {
    std::string text;  // empty: there is none
    std::string accept;
    std::string refuse;
};

class Desk {
  public:
    Desk();

    // Reads the tables, and what was left unsaved last time. `table` is that of the last game, -1: there was none.
    // Empty, or why there is no bench.
    std::string Open(int table = -1);

    // To be called every now and then: takes over what the editor windows have stored.
    void Observe();
    // The same, less often: looks whether others have changed the files.
    void LookAtFiles();

    const Bench& Model() const { return bench_; }
    // The game has read the file of that appearance table.
    void TableLoaded(int table) { bench_.TableLoaded(table); }

    // What the last action said: why it was refused, or what it did. One line.
    const std::string& Message() const { return message_; }
    DeskOffer Offer() const;
    void Answer(bool accepted);

    int Table() const { return range_.table; }
    void ChooseTable(int table);
    const EntryRange& Chosen() const { return range_; }
    void Choose(int first, int last);
    int Kind() const { return kind_; }
    void ChooseKind(int kind);
    int Step() const { return step_; }
    // The frame of the stage that the picture shows.
    int Time() const { return time_; }
    void ChooseTime(int time);
    int LastTime();

    // The list: a row for each entry in use and one more.
    static const char* Title(DeskColumn column);
    int Rows() const;
    std::string Cell(int row, DeskColumn column);
    int KindIn(int row) const;        // whose picture the row shows; -1: none
    std::string Reason(int row);      // why it is invalid, as the check says it; empty: it is not
    std::string Finding();            // the chosen entry's, or the first one of kinds and patterns
    void Search(const std::string&);  // chooses the next row that has the text

    const std::vector<DeskField>& Fields() const { return fields_; }
    const std::vector<DeskButton>& Buttons() const { return buttons_; }
    // Both tell the result by Message.
    void Store(const DeskField& field, const std::string& text);
    void Press(const DeskButton& button);
    // As the buttons "Draw path" and "Back", "Forward" do.
    void GoTo(std::size_t done);

    // The picture. Places are pixels of the field; `reach` is how near counts as on it; `fine` keeps fractions.
    Drawing Picture();
    std::string Caption();  // how long the enemy flies, where it is
    void DrawNextDrag(bool draw) { drawing_ = draw; }
    bool DrawsNextDrag() const { return drawing_; }
    void Grip(DrawnPoint at, float reach);
    void DragTo(DrawnPoint at, bool fine);
    void LetGo();

    // The chosen kind's pictures: the frames of its animation as its pattern shows them, one per frame of the game.
    std::vector<Byte> Animation() const;
    // A click on the sheet: the kind takes the frame that lies there.
    void ChooseFrame(int x, int y);

    // Where the editor windows open: at what is chosen here.
    void PlaceEditors() const;

    // The game as it is to be tried, from the chosen entry on.
    TryOut Start() const;

  private:
    enum class Held { nothing, entry, step, stroke };
    using Change = std::function<std::string(Tables&)>;

    void AddFields();
    void AddButtons();
    template <typename Record>
    void AddRecordFields(DeskPlace place, const char* const* tips, std::function<Record&(Tables&, int)> record);
    std::string Do(const Change& change, const std::string& label = "");
    void Changed();
    std::string OnRange(const std::function<std::string(Tables&, const EntryRange&)>& action, int chooseFrom,
                        int chooseLength);
    const StageFindings& Stage();
    const std::map<int, std::string>& Reasons();
    const EnemyPath& PathOfEntry(int row);
    std::vector<OnionSkin> Others();
    void FollowEntry();
    bool IsEnemy(int row) const;
    int PatternOfKind() const;
    const StageDataType& Entry(int row) const { return bench_.Working().Stages[range_.table][row]; }
    void DragEntry(DrawnPoint at, bool fine);
    void DragStep(DrawnPoint at, bool fine);
    void Replace(const Tables& next);

    Bench bench_;
    EntryRange range_{0, 0, 0};
    int kind_ = 0;
    int step_ = 0;
    int time_ = 0;
    std::string message_;
    std::vector<DeskField> fields_;
    std::vector<DeskButton> buttons_;

    std::vector<TableChange> left_;    // unsaved of last time
    std::vector<std::string> onDisk_;  // files that others have changed
    int journaled_ = 0;                // bench_.Changes() when the journal was written

    // What is found out once for each state of the tables.
    int known_ = -1;  // bench_.Changes() then
    int knownTable_ = -1;
    StageFindings stage_;
    std::map<int, std::string> reasons_;
    std::string otherFinding_;
    std::map<int, EnemyPath> paths_;

    bool drawing_ = false;
    Held held_ = Held::nothing;
    std::size_t heldPoint_ = 0;  // of the path
    DrawnPoint grip_{};          // from the held place to the mouse
    bool acted_ = false;         // the drag's own action is the last one
    std::string note_;
    DrawnPoint notePlace_{};
    std::vector<DrawnPoint> stroke_;

    // The fields of wave, shift and start.
    Wave wave_{4, 12, 40};
    int shift_ = 10;
    Single speed_ = 3;
    TryOut start_;
};
