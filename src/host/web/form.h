// A form on the page. The page only queues what the user did; it is carried out on the form's data, and the page then
// shows the data.
#pragma once

#include <emscripten/val.h>

struct Form;

namespace web {

class FormOnPage {
  public:
    // On top of everything for as long as this lives, whatever ends it.
    explicit FormOnPage(Form& form);
    ~FormOnPage();
    FormOnPage(const FormOnPage&) = delete;
    FormOnPage& operator=(const FormOnPage&) = delete;

    // Carries out what is queued, in order, until nothing is left or the form is closed. Handlers run in here.
    void CarryOut() const;

    // Makes the page show the data of the form on top, if there is one.
    static void SyncTop();

  private:
    void CarryOut(const emscripten::val& act) const;

    Form& form_;
    Form* below_;
};

}  // namespace web
