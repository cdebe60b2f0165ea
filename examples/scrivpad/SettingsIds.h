#pragma once

/* Numbers of the settings dialog, for the resource compiler too. */
#define settingsTemplate 200
#define settingsTabs 201
#define settingsApply 202
