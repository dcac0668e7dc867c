-- Run by Ardour's session interpreter: makes a session with the effect on a track, or changes one
-- that is there. What to do comes as environment variables: SESSION_FOLDER, SESSION, RATE; LV2_URI,
-- for the effect as LV2; BESIDE, for the VST 2 effect after that one on its track, with the same
-- parameters; PARAMETERS, as "index=value ...", to set; EXPECTED, in the same form, to find before
-- that.
io.stdout:setvbuf("no")  -- the interpreter may end by force
local folder, name = os.getenv("SESSION_FOLDER"), os.getenv("SESSION")
local lv2_uri = os.getenv("LV2_URI")
local vst2_id = "1416394350"  -- 'Tlvn'
local unique_id = lv2_uri or vst2_id
local kind = lv2_uri and ARDOUR.PluginType.LV2 or ARDOUR.PluginType.LXVST

local function pairs_in(text)
  local list = {}
  for index, value in string.gmatch(text or "", "(%d+)=(%S+)") do
    list[tonumber(index)] = tonumber(value)
  end
  return list
end

AudioEngine:set_backend("None (Dummy)", "", "")
local session, processor
if os.getenv("NEW") then
  session = create_session(folder, name, tonumber(os.getenv("RATE")))
  assert(session, "no session")
  local channels = tonumber(os.getenv("CHANNELS"))
  local tracks = session:new_audio_track(channels, 2, nil, 1, "Sound",
                                         ARDOUR.PresentationInfo.max_order,
                                         ARDOUR.TrackMode.Normal, true)
  processor = ARDOUR.LuaAPI.new_plugin(session, unique_id, kind, "")
  if processor:isnil() then error("Ardour does not know the effect") end
  tracks:front():add_processor_by_index(processor, 0, nil, true)
  if os.getenv("BESIDE") then
    local other = ARDOUR.LuaAPI.new_plugin(session, vst2_id, ARDOUR.PluginType.LXVST, "")
    tracks:front():add_processor_by_index(other, 1, nil, true)
    for index, value in pairs(pairs_in(os.getenv("PARAMETERS"))) do
      assert(ARDOUR.LuaAPI.set_processor_param(other, index, value), "parameter not set")
    end
  end
else
  session = load_session(folder, name)
  assert(session, "no session")
  processor = session:route_by_name("Sound"):nth_plugin(0)
  if processor:isnil() then error("the session has lost the effect") end
end

for index, value in pairs(pairs_in(os.getenv("EXPECTED"))) do
  local found = ARDOUR.LuaAPI.get_processor_param(processor, index)
  print(string.format("parameter %d: %.9g", index, found))
  -- Texts of the values have nine digits, values are single precision.
  if math.abs(found - value) > 1e-7 then error("parameter " .. index .. " is not " .. value) end
end
for index, value in pairs(pairs_in(os.getenv("PARAMETERS"))) do
  assert(ARDOUR.LuaAPI.set_processor_param(processor, index, value), "parameter not set")
end

session:save_state(os.getenv("SAVE_AS") or "")
print("saved")
close_session()
quit()
