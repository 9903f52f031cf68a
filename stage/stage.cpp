#include "stage/stage.h"

#include <algorithm>

#include "stage/files/path_text.h"
#include "stage/files/text_file.h"
#include "stage/forms/dialogs.h"

namespace stage {

Stage::Stage(Platform& platform, std::span<const Asset> assets, std::string title)
    : Screen(platform.Screen()),
      Pictures(assets),
      platform_(platform),
      title_(std::move(title)),
      timers_(platform),
      glides_(platform),
      painter_(platform, Screen, assets) {}

void Stage::Run() {
  while (!forms_.empty()) Wait();
}

void Stage::DoEvents() {
  while (!Returning()) {
    const auto event = platform_.NextEvent();
    if (!event) break;
    Dispatch(*event);
  }
  CloseForms();
  glides_.Beat();
  timers_.RunDue();
}

bool Stage::Returning() const { return quitting_ || (!modal_.empty() && !modal_.back()->Loaded()); }

void Stage::Wait() {
  if (!quitting_) {
    TellOfText();
    PaintNow();
    platform_.Wait(std::min({timers_.NextBeat(), glides_.NextRefresh(), effects_.NextBeat()}),
                   Wake::kOnInput);
  }
  DoEvents();
}

void Stage::TellOfText() {
  const Form* const form = ActiveForm();
  const bool wanted = form != nullptr && form->Focus() != nullptr && form->Focus()->TakesText();
  if (wanted == text_wanted_) return;
  text_wanted_ = wanted;
  platform_.TextWanted(wanted);
}

void Stage::End() { throw ProgramEnd{}; }

void Stage::Sleep(std::chrono::milliseconds time) { platform_.Wait(platform_.Now() + time, Wake::kOnTime); }

void Stage::Show(const std::shared_ptr<Form>& form, Modality modality) {
  effects_.Clear();
  keeper_.reset();
  std::erase(forms_, form);
  forms_.push_back(form);
  form->shown_ = true;
  form->Changing();
  if (modality == kModeless) return form->Form_Activate();
  struct Modal {
    Modal(std::vector<const Form*>& all, const Form& form) : all_(all) { all_.push_back(&form); }
    ~Modal() { all_.pop_back(); }
    std::vector<const Form*>& all_;
  } const modal(modal_, *form);
  form->Form_Activate();
  while (form->Loaded()) Wait();
}

void Stage::Unload(Form& form) {
  if (!form.loaded_) return;
  effects_.Clear();
  if (keeper_.lock().get() == &form) keeper_.reset();
  form.Form_Unload();
  form.loaded_ = false;
  form.shown_ = false;
  timers_.StopAllOf(form);
  Damage(form.painted_);
  std::erase_if(forms_, [&](const auto& shown) { return shown.get() == &form; });
}

void Stage::CloseForms() {
  while (quitting_ && !forms_.empty()) Handle(CloseAsked{});
}

void Stage::MsgBox(const std::string& text) { Show(std::make_shared<MessageForm>(*this, text), kModal); }

std::string Stage::InputBox(const std::string& prompt, const std::string& offered) {
  const auto form = std::make_shared<InputForm>(*this, prompt, offered);
  Show(form, kModal);
  return form->Answer();
}

void Stage::Damage(const PixelRect& pixels) {
  painter_.Damage(pixels);
  Touch();
}

void Stage::PaintNow() {
  glides_.Show();
  effects_.Show();
  if (!touched_) return;
  touched_ = false;
  painter_.Paint(forms_, effects_);
}

void Stage::Repaint() {
  painter_.Forget();
  Touch();
  PaintNow();
}

std::shared_ptr<const Bitmap> Stage::BitmapOf(const Picture& picture) {
  return painter_.Made().Of(picture, painter_.View().NaturalSize(picture.natural));
}

std::string Stage::AppPath() const {
  const std::filesystem::path own = platform_.Folders().own;
  return TextOf(own.has_filename() ? own : own.parent_path());
}

Long Stage::ShowCursor(bool shown) {
  cursor_counter_ = cursor_counter_ + (shown ? 1 : -1);
  platform_.ShowPointer(cursor_counter_ >= 0);
  return cursor_counter_;
}

void Stage::SetCursorPos(PixelPoint place) {
  platform_.MovePointer(place);
  Locate({Double(place.x), Double(place.y)});
  pointer_set_ = place;
}

std::filesystem::path Stage::FileToRead(const std::filesystem::path& file) const {
  return stage::FileToRead(platform_.Folders(), file);
}

void Stage::sndPlaySoundA(const std::filesystem::path& file) { platform_.PlaySound(FileToRead(file)); }

}  // namespace stage
