# What the aeroplane is made of, and by which values. The expected figures are those of data/expected_totals.csv,
# rounded to what the units show. The largest share of materials comes first, and the least mature mass type.
start CATWBVPMNavReport
check CATWBVPMNavReportPanel/MaterialStatistics on
shot material_statistics_panel.png CATWBVPMNavReportPanel
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect CATWBVPMNavMatStatPreview/MatStatPRCMultiList 20
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 20 Material "Steel 100Cr6"
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 20 Mass 0.665
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 20 Density ""
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 20 "Share of mass" 0.174
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Material "Al 2024-T3"
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Mass 94.998
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Density 2780
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 "Share of mass" 24.9
expect CATWBVPMNavMatStatPreview/UnitsNote "Units: kg, kg/m3, kg/m2"
expect CATWBVPMNavMatStatPreview/MassTypePRCMultiList 4
expect-cell CATWBVPMNavMatStatPreview/MassTypePRCMultiList 4 "Mass type" Weighed
expect-cell CATWBVPMNavMatStatPreview/MassTypePRCMultiList 4 Mass 74.376
expect-cell CATWBVPMNavMatStatPreview/MassTypePRCMultiList 4 "Share of mass" 19.5
expect-cell CATWBVPMNavMatStatPreview/MassTypePRCMultiList 2 Mass 229.206
shot material_statistics.png CATWBVPMNavMatStatPreview
sort CATWBVPMNavMatStatPreview/MatStatPRCMultiList Density
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Material "Polyurethane paint"
click CATWBVPMNavMatStatPreview/MatStatPRCMultiList
file material_statistics_files/material_statistics.csv
key Ctrl+E

check CATWBVPMNavMatStatPreview/UnitsDisplay on
# A surface by its area.
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Density 0.19kg/m2
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Mass 8.74kg
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 "Share of mass" 2.29%
check CATWBVPMNavMatStatPreview/TrailingZero on
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Density 0.190000kg/m2
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Mass 8.740kg

click CATWBVPMNavMatStatPreview/SavePushButton
expect-box "WBReport_LA1_"
file material_statistics_files/material_statistics.xml
click CATWBVPMNavMatStatPreview/SaveAsPushButton
expect-box "The report was saved to"
file material_statistics_files/material_statistics.xml
answer No
click CATWBVPMNavMatStatPreview/SaveAsPushButton
file material_statistics_files/material_statistics.xml
answer Yes
click CATWBVPMNavMatStatPreview/SaveAsPushButton
expect-box "The report was saved to"
click CATWBVPMNavMatStatPreview/ClosePushButton

# Of every instance of the spar too, in pounds; the options are as they were left. 3.4194 kg are 7.538 lb.
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1
check CATWBVPMNavReportPanel/EveryInstance on
units MASS lb
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect CATWBVPMNavMatStatPreview/UnitsDisplay on
expect CATWBVPMNavMatStatPreview/TrailingZero on
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 20 Mass 1.466lb
expect CATWBVPMNavMatStatPreview/UnitsNote "Units: lb, kg/m3, kg/m2"
check CATWBVPMNavMatStatPreview/TrailingZero off
check CATWBVPMNavMatStatPreview/UnitsDisplay off
# The spar itself is of two materials, each of its five parts of one.
expect CATWBVPMNavMatStatPreview/MatStatPartMultiList 7
expect-cell CATWBVPMNavMatStatPreview/MatStatPartMultiList 2 Material "Steel 4130"
# Two fittings of 0.634 kg, of 11.3872 kg.
expect-cell CATWBVPMNavMatStatPreview/MatStatPartMultiList 2 Mass 2.795
expect-cell CATWBVPMNavMatStatPreview/MatStatPartMultiList 2 "Share of mass" 11.1
expect-cell CATWBVPMNavMatStatPreview/MatStatPartMultiList 3 Instance WNG-211.1
expect-cell CATWBVPMNavMatStatPreview/MatStatPartMultiList 3 Mass 7.538
expect-cell CATWBVPMNavMatStatPreview/MatStatPartMultiList 3 "Share of mass" 100
expect CATWBVPMNavMatStatPreview/MassTypePartMultiList 7
expect-cell CATWBVPMNavMatStatPreview/MassTypePartMultiList 2 "Mass type" Weighed
shot material_statistics_of_a_spar.png CATWBVPMNavMatStatPreview
close CATWBVPMNavMatStatPreview
close CATWBVPMNavReportPanel
