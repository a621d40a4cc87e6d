#pragma once

#include "Demo/Script.h"

/// The acts of the script, in two files of data.
namespace mimkins::demo {

Act arrivalAct();
Act departureAct();

// Work as it goes, and what it leaves behind.
Act repairAct();
Act backgroundAct();
Act crewAct();
Act compactionAct();
Act stuckAct();

// Waiting for the user.
Act permissionAct();
Act questionAct();
Act planAct();
Act dialogAct();
Act elicitationAct();

} // namespace mimkins::demo
