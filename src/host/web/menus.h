// The menu bar on the page. It follows the menu model; a click comes back as an event.
#pragma once

namespace web {

// Tells the page the whole bar. Called once.
void BuildMenus();

// Check marks and availability as the model has them now, if they have changed.
void SyncMenus();

}  // namespace web
