# Units are chosen in the panel of the Tools menu; an open panel of values follows at once.
start CATTEQWBComputePartCmd
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1
expect CATWBVPMMainPanel/Mass "3.419 kg"

menu Tools/Units...
expect CATWBVPMNavUnitsConversion Units
expect CATWBVPMNavUnitsConversion/Preset "As shipped"
expect-cell CATWBVPMNavUnitsConversion/Table 1 Quantity Mass
expect-cell CATWBVPMNavUnitsConversion/Table 1 "Example, stored" "12.5 kg"
expect-cell CATWBVPMNavUnitsConversion/Table 2 Quantity Length
shot units_panel_as_shipped.png CATWBVPMNavUnitsConversion

# One unit: it is pending, and the example shows what it does. 1270 mm / 25.4 mm = 50 in.
select CATWBVPMNavUnitsConversion/Table Length
expect CATWBVPMNavUnitsConversion/Quantity "of the selected quantity: Length"
select CATWBVPMNavUnitsConversion/Unit in
expect-cell CATWBVPMNavUnitsConversion/Table 2 Unit mm
expect-cell CATWBVPMNavUnitsConversion/Table 2 "New unit" in
expect-cell CATWBVPMNavUnitsConversion/Table 2 "Example, shown" "50 in"
expect CATWBVPMNavUnitsConversion/State "1 change is not applied yet"
expect CATWBVPMMainPanel/Centre "x 1620   y 0   z 4 mm"
click CATWBVPMNavUnitsConversion/ResetButton
expect-cell CATWBVPMNavUnitsConversion/Table 2 "New unit" ""
expect CATWBVPMNavUnitsConversion/State ""

# A preset: all units of mass properties at once.
select CATWBVPMNavUnitsConversion/Preset Inch-pound
expect CATWBVPMNavUnitsConversion/State "6 changes are not applied yet"
expect CATWBVPMMainPanel/Mass "3.419 kg"
shot units_panel_pending.png CATWBVPMNavUnitsConversion
resize CATWBVPMNavUnitsConversion 600 400
shot units_panel_small.png CATWBVPMNavUnitsConversion
resize CATWBVPMNavUnitsConversion 1100 900
shot units_panel_large.png CATWBVPMNavUnitsConversion
click CATWBVPMNavUnitsConversion/ApplyButton
expect CATWBVPMNavUnitsConversion/State ""
expect-cell CATWBVPMNavUnitsConversion/Table 1 Unit lb

# The open main panel shows them without another pick: 3.4194 kg / 0.45359237 kg = 7.538486 lb,
# 1620 mm / 25.4 mm = 63.779528 in, 4 mm / 25.4 mm = 0.157480 in.
expect CATWBVPMMainPanel/Mass "7.538 lb"
expect CATWBVPMMainPanel/Centre "x 63.7795   y 0   z 0.1575 in"
expect-cell CATWBVPMMainPanel/MassTypes/List 4 "Mass [lb]" 7.538
resize CATWBVPMNavUnitsConversion 620 640
shot units_panel_applied.png

# Whoever closes the panel is asked about what is not applied.
select CATWBVPMNavUnitsConversion/Preset SI
answer No
click CATWBVPMNavUnitsConversion/CloseButton
expect CATWBVPMMainPanel/Mass "7.538 lb"
key Ctrl+U
expect CATWBVPMNavUnitsConversion/Preset Inch-pound
select CATWBVPMNavUnitsConversion/Preset "As shipped"
answer Yes
close CATWBVPMNavUnitsConversion
expect CATWBVPMMainPanel/Mass "3.419 kg"
