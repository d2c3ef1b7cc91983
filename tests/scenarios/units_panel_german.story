# The units panel for a German user with a decimal comma. Played under de_DE.UTF-8.
menu Tools/Units...
expect CATWBVPMNavUnitsConversion Einheiten
expect CATWBVPMNavUnitsConversion/Preset "Wie ausgeliefert"
select CATWBVPMNavUnitsConversion/Preset Zoll-Pfund
# 12.5 kg / 0.45359237 kg = 27.557783 lb.
expect-cell CATWBVPMNavUnitsConversion/Table 1 0 Masse
expect-cell CATWBVPMNavUnitsConversion/Table 1 Beispielwert "12,5 kg"
expect-cell CATWBVPMNavUnitsConversion/Table 1 "Gezeigt als" "27,558 lb"
expect CATWBVPMNavUnitsConversion/State "6 Änderungen sind noch nicht angewendet"
resize CATWBVPMNavUnitsConversion 600 400
shot units_panel_german.png CATWBVPMNavUnitsConversion
click CATWBVPMNavUnitsConversion/ApplyButton
click CATWBVPMNavUnitsConversion/CloseButton
