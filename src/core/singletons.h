#pragma once

/// The whole of every class that a Server owns one of.
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/clsIniRw.h"
#include "extras/Flaps.h"
#include "extras/FuelAccount.h"
#include "extras/SoundEvents.h"
#include "extras/SoundSettings.h"
#include "extras/clsSound.h"
#include "extras/frmSound.h"
#include "simlink/Poll.h"
#include "simlink/clsFSUIPC.h"
#include "sticks/clsJoyst.h"
