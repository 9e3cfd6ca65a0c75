#include "support/faults/faulty_forms.h"

#include <utility>

#include "platform/tree_grid.h"
#include "support/faults/scripted_connection.h"

namespace vexnumkr::test {
namespace {

// What all controls have.
template <class Interface>
class Faulty : public Interface {
 public:
  Faulty(Interface& real, FormsFaults& faults) : real_(real), faults_(faults) {}

  std::string Name() const override { return real_.Name(); }
  bool Visible() const override { return checked("Visible").Visible(); }
  void Visible(bool visible) override { checked("Visible=").Visible(visible); }
  Rect Position() const override { return checked("Position").Position(); }
  void Position(const Rect& position) override { checked("Position=").Position(position); }
  void SetFont(const Font& font) override { checked("SetFont").SetFont(font); }
  void ToolTipText(const std::string& text) override { checked("ToolTipText=").ToolTipText(text); }

 protected:
  /// The real control, unless that member is to fail.
  Interface& checked(const char* member) const {
    faults_.check(real_.Name() + "." + member);
    return real_;
  }

 private:
  Interface& real_;
  FormsFaults& faults_;
};

class FaultyButton final : public Faulty<Button> {
 public:
  using Faulty::Faulty;
  void OnClick(std::function<void()> handler) override { checked("OnClick=").OnClick(handler); }
};

class FaultyCombo final : public Faulty<ComboBox> {
 public:
  using Faulty::Faulty;
  void Clear() override { checked("Clear").Clear(); }
  void AddItem(const std::string& text) override { checked("AddItem").AddItem(text); }
  std::int32_t ListCount() const override { return checked("ListCount").ListCount(); }
  std::string List(std::int32_t index) const override { return checked("List").List(index); }
  std::int32_t ListIndex() const override { return checked("ListIndex").ListIndex(); }
  void ListIndex(std::int32_t index) override { checked("ListIndex=").ListIndex(index); }
  std::string Text() const override { return checked("Text").Text(); }
  void Text(const std::string& text) override { checked("Text=").Text(text); }
  void SelectSilently(std::int32_t index) override {
    checked("SelectSilently").SelectSilently(index);
  }
  void OnClick(std::function<void()> handler) override { checked("OnClick=").OnClick(handler); }
};

class FaultyCheckList final : public Faulty<CheckList> {
 public:
  using Faulty::Faulty;
  void AddItem(const std::string& text) override { checked("AddItem").AddItem(text); }
  std::int32_t ListCount() const override { return checked("ListCount").ListCount(); }
  bool Selected(std::int32_t index) const override { return checked("Selected").Selected(index); }
  void Selected(std::int32_t index, bool on) override { checked("Selected=").Selected(index, on); }
};

class FaultyOption final : public Faulty<OptionButton> {
 public:
  using Faulty::Faulty;
  bool Value() const override { return checked("Value").Value(); }
  void Value(bool selected) override { checked("Value=").Value(selected); }
};

class FaultyPicture final : public Faulty<PictureHolder> {
 public:
  using Faulty::Faulty;
  PictureHandle Picture() const override { return checked("Picture").Picture(); }
};

class FaultyGrid final : public Faulty<TreeGrid> {
 public:
  using Faulty::Faulty;
  std::int32_t AddItem(std::string_view text) override { return checked("AddItem").AddItem(text); }
  void Clear() override { checked("Clear").Clear(); }
  std::int32_t ListCount() const override { return checked("ListCount").ListCount(); }
  void ItemLevel(std::int32_t index, std::int16_t level) override {
    checked("ItemLevel=").ItemLevel(index, level);
  }
  std::int16_t ItemLevel(std::int32_t index) const override {
    return checked("ItemLevel").ItemLevel(index);
  }
  std::string List(std::int32_t index, std::int16_t column) const override {
    return checked("List").List(index, column);
  }
  void List(std::int32_t index, std::int16_t column, std::string_view text) override {
    checked("List=").List(index, column, text);
  }
  void List(std::int32_t index, std::int16_t column, std::int32_t number) override {
    checked("List=").List(index, column, number);
  }
  Font CellFont(std::int32_t index, std::int16_t column) const override {
    return checked("CellFont").CellFont(index, column);
  }
  void CellFontBold(std::int32_t index, std::int16_t column, bool bold) override {
    checked("CellFontBold=").CellFontBold(index, column, bold);
  }
  void CellBackColor(std::int32_t index, std::int16_t column, GridColour colour) override {
    checked("CellBackColor=").CellBackColor(index, column, colour);
  }
  PictureHandle ItemPicture(std::int32_t index) const override {
    return checked("ItemPicture").ItemPicture(index);
  }
  void ItemPicture(std::int32_t index, PictureHandle picture) override {
    checked("ItemPicture=").ItemPicture(index, picture);
  }
  std::int32_t ListIndex() const override { return checked("ListIndex").ListIndex(); }
  void ListIndex(std::int32_t index) override { checked("ListIndex=").ListIndex(index); }
  void Selected(std::int32_t index, bool on) override { checked("Selected=").Selected(index, on); }
  std::int32_t FindString(std::int32_t start, std::int16_t column,
                          std::string_view text) const override {
    return checked("FindString").FindString(start, column, text);
  }
  void StartEdit(std::int32_t index, std::int16_t column) override {
    checked("StartEdit").StartEdit(index, column);
  }
  bool EndEdit(bool keepText) override { return checked("EndEdit").EndEdit(keepText); }
  void ItemEditFont(const Font& font) override { checked("ItemEditFont=").ItemEditFont(font); }
  void ColHeaderFont(const Font& font) override { checked("ColHeaderFont=").ColHeaderFont(font); }
  void RowHeaderFont(const Font& font) override { checked("RowHeaderFont=").RowHeaderFont(font); }
  void CellButtonPicture(PictureHandle picture) override {
    checked("CellButtonPicture=").CellButtonPicture(picture);
  }
  void DisplayStyle(std::int16_t style) override { checked("DisplayStyle=").DisplayStyle(style); }
  double ColWidth(std::int16_t column) const override {
    return checked("ColWidth").ColWidth(column);
  }
  void ColWidth(std::int16_t column, double width) override {
    checked("ColWidth=").ColWidth(column, width);
  }
  void AcceptsEntries(bool accepts) override { checked("AcceptsEntries").AcceptsEntries(accepts); }
  void AcceptsChoices(bool accepts) override { checked("AcceptsChoices").AcceptsChoices(accepts); }
  void ColTextLimit(std::int16_t column, std::int32_t characters) override {
    checked("ColTextLimit").ColTextLimit(column, characters);
  }
  void ShowGroup(std::int32_t index) override { checked("ShowGroup").ShowGroup(index); }
  void BeginUpdate() override { checked("BeginUpdate").BeginUpdate(); }
  void EndUpdate() override { checked("EndUpdate").EndUpdate(); }
  void Events(TreeGridEvents* events) override { checked("Events=").Events(events); }
};

// Null unless the control is of that kind.
template <class Made, class Interface>
std::unique_ptr<Control> madeFor(Control& real, FormsFaults& faults) {
  auto* found = dynamic_cast<Interface*>(&real);
  return found == nullptr ? nullptr : std::make_unique<Made>(*found, faults);
}

std::unique_ptr<Control> faulty(Control& real, FormsFaults& faults) {
  for (const auto make :
       {madeFor<FaultyGrid, TreeGrid>, madeFor<FaultyCombo, ComboBox>,
        madeFor<FaultyButton, Button>, madeFor<FaultyCheckList, CheckList>,
        madeFor<FaultyOption, OptionButton>, madeFor<FaultyPicture, PictureHolder>,
        madeFor<Faulty<Label>, Label>, madeFor<Faulty<Frame>, Frame>})
    if (auto made = make(real, faults)) return made;
  throw Error::objectNotSet();
}

class FaultyForm final : public Form {
 public:
  FaultyForm(std::unique_ptr<Form> real, FormsFaults& faults)
      : real_(std::move(real)), faults_(faults) {
    for (Control* control : real_->Controls()) {
      owned_.push_back(faulty(*control, faults));
      byReal_[control] = owned_.back().get();
      inOrder_.push_back(owned_.back().get());
    }
  }

  std::string Name() const override { return real_->Name(); }
  std::int32_t ScaleWidth() const override { return checked("ScaleWidth").ScaleWidth(); }
  std::int32_t ScaleHeight() const override { return checked("ScaleHeight").ScaleHeight(); }
  void Icon(const PictureData& picture) override { checked("Icon=").Icon(picture); }
  void SetFont(const Font& font) override { checked("SetFont").SetFont(font); }
  const std::vector<Control*>& Controls() const override { return inOrder_; }
  Control* FindControl(std::string_view name, int arrayIndex) const override {
    Control* found = real_->FindControl(name, arrayIndex);
    return found == nullptr ? nullptr : byReal_.at(found);
  }
  void ShowModal() override { checked("ShowModal").ShowModal(); }
  void Unload() override { checked("Unload").Unload(); }

 private:
  Form& checked(const char* member) const {
    faults_.check(real_->Name() + "." + member);
    return *real_;
  }

  std::unique_ptr<Form> real_;
  FormsFaults& faults_;
  std::vector<std::unique_ptr<Control>> owned_;
  std::map<const Control*, Control*> byReal_;
  std::vector<Control*> inOrder_;
};

}  // namespace

void FormsFaults::check(const std::string& call) {
  if (call != call_) return;
  call_.clear();
  ConnectionScript::failOnPurpose();
}

std::unique_ptr<Form> FaultyForms::createForm(const FormDescription& description,
                                              FormEvents& events) {
  faults_.check("createForm " + description.name);
  return std::make_unique<FaultyForm>(real_->createForm(description, events), faults_);
}

std::int32_t FaultyForms::MsgBox(const std::string& prompt, std::int32_t buttons,
                                 const std::string& title) {
  faults_.check("MsgBox");
  return real_->MsgBox(prompt, buttons, title);
}

void FaultyForms::SetMousePointer(MousePointer pointer) {
  faults_.check("SetMousePointer");
  real_->SetMousePointer(pointer);
}

void FaultyForms::DoEvents() {
  faults_.check("DoEvents");
  real_->DoEvents();
}

}  // namespace vexnumkr::test
