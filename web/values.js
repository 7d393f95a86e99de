// What the record says, as instruments want it. docs/display-protocol.md tells every name.

export const clamp = (value, low, high) => Math.min(high, Math.max(low, value));
export const wrap360 = (degrees) => ((degrees % 360) + 360) % 360;
// -180 to 180
export const wrap180 = (degrees) => wrap360(degrees + 180) - 180;
export const degreesText = (degrees) => String(Math.round(wrap360(degrees)) % 360 || 360).padStart(3, "0");

// Right positive: the record counts the left wing down from 0 to 180.
export const bankOf = (record) => -wrap180(record.Bank);
export const trueHeadingOf = (record) => wrap360(record.MagHeading + record.MagVar);
export const blocksOf = (record) => ([1, 2, 3].includes(record.EngineCount) ? record.EngineCount : 4);
export const engine = (record, number, name) => record[`Engines(${number}).${name}`];

const bitNames = [
  ["apAirspeedHoldByPitch", "apAltitudeHold", "apGlideslopeHold", "apAttitudeHold", "apBackCourseHold",
    "apHeadingHold", "apLocalizerHold", "apAirspeedHoldByRpm"],
  ["apMaster", "apCmdLeft", "apCwsLeft", "apCmdRight", "apNav1Hold", "apVSpeedHold", "apRpmHold", "apCwsRight"],
  ["apAutoThrottle", "apToGa", "AutoCoordination", "apChangeover", "LNAV", "VNAV", "apLevelChange",
    "apApproachHold"],
];

const places = new Map(bitNames.flatMap((names, set) => names.map((name, bit) => [name, [set + 1, bit]])));

export function bit(record, name) {
  const [set, place] = places.get(name);
  return ((record[`ApBits(${set})`] >> place) & 1) === 1;
}

// "_" stands for no mode.
export const modeText = (text) => (text === "_" ? "" : text.replaceAll("_", " "));

// A selected altitude reads -25 until it is set.
export const selectedAltitude = (record) => Math.max(0, record.apMcpAltitude);

// A lever or surface of the scale of 16383.
export const travel_percent = (position) => (position / 16383) * 100;
