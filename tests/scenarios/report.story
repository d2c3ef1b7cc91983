# Reports of picked instances and of the whole aeroplane, shown in every way, saved and exported. The expected figures
# are those of data/expected_totals.csv and data/light_aeroplane.csv, rounded to what the units show.
start CATWBVPMNavReport
expect CATWBVPMNavReportPanel Report
expect CATWBVPMNavReportPanel/Product LA1
expect CATWBVPMNavReportPanel/Filter "No filter"
expect CATWBVPMNavReportPanel/AddPicked on
expect CATWBVPMNavReportPanel/Instances/List 0
shot report_panel_empty.png CATWBVPMNavReportPanel

# Picks come into the list, each once; several at a time too.
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1
pick LA1/FUS-000.1/FUS-100.1/FUS-110.1 LA1/PWR-000.1
expect CATWBVPMNavReportPanel/Instances/List 3
expect-cell CATWBVPMNavReportPanel/Instances/List 1 Path LA1/WNG-000.1/WNG-200R.1/WNG-210.1
expect-cell CATWBVPMNavReportPanel/Instances/List 2 Part FUS-110
pick LA1/PWR-000.1
expect CATWBVPMNavReportPanel/Instances/List 3
expect CATWBVPMNavReportPanel/Word "PWR-000.1 is in the list already."
click CATWBVPMNavReportPanel/RemoveButton
expect CATWBVPMNavReportPanel/Instances/List 2
# Not every pick is meant for the list.
check CATWBVPMNavReportPanel/AddPicked off
pick LA1/EMP-000.1
expect CATWBVPMNavReportPanel/Instances/List 2
check CATWBVPMNavReportPanel/AddPicked on
select CATWBVPMNavReportPanel/Instances/List FUS-110.1
click CATWBVPMNavReportPanel/RemoveButton
expect CATWBVPMNavReportPanel/Instances/List 1
shot report_panel.png CATWBVPMNavReportPanel

# The spar and its five parts; the first line is the whole aeroplane all the same.
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Placards (FIN-300 A) has no centre of gravity"
expect CATWBVPMNavReportPreview/SelectionEditor "LA1 WNG-210.1"
expect CATWBVPMNavReportPanel/Word "The report of LA1 WNG-210.1 was opened."
expect CATWBVPMNavReportPreview/ReportMultiListPRC 1
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "PRC ID" LA1
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Mass" 381.359
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Lower deviation" 11.523
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Upper deviation" 19.718
expect CATWBVPMNavReportPreview/ReportMultiListInst 6
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 Level 1
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 "Instance ID" WNG-210.1
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 "WB Mass" 11.387
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 2 Level 2
# 0.00123 m3 of 2780 kg/m3.
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 2 "WB Mass" 3.419
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 2 "Cut Volume" 0.00123
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 2 InstancePath LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1
shot report_of_a_spar.png CATWBVPMNavReportPreview
click CATWBVPMNavReportPreview/ClosePushB

# The whole aeroplane with two of its properties.
click CATWBVPMNavReportPanel/ClearButton
select CATWBVPMNavReportPanel/Properties/List Vendor
click CATWBVPMNavReportPanel/TakeButton
select CATWBVPMNavReportPanel/Properties/List Operating_time
click CATWBVPMNavReportPanel/TakeButton
expect-cell CATWBVPMNavReportPanel/Properties/List 1 Taken ""
click CATWBVPMNavReportPanel/PointX
key Return
expect-box "Warnings of the report"
expect CATWBVPMNavReportPreview/SelectionEditor LA1
expect CATWBVPMNavReportPreview/ReportMultiListInst 294
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGx 930.082
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIzz 1442.488873
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 POIyz -0.230203
sort CATWBVPMNavReportPreview/ReportMultiListInst "WB Mass"
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 Name "Spherical bearing"
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 "WB Mass" 0.035
sort CATWBVPMNavReportPreview/ReportMultiListInst "WB Mass"
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 "Instance ID" WNG-000.1
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 "WB Mass" 103.982
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 2 "WB Mass" 98.211
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 3 "WB Mass" 71.034
# The weighed engine has run for 3.5 hours.
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 "WB Mass" 61.4
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 "Operating time" 3.5
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 Vendor "Motorenwerk Süd"
shot report_sorted.png CATWBVPMNavReportPreview

# As it is shown now, as a table of other programs.
click CATWBVPMNavReportPreview/ReportMultiListInst
file report_files/report.csv
key Ctrl+E

# Every value with its unit, with all its decimals, and back.
check CATWBVPMNavReportPreview/UnitsDisplay on
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Mass" 381.359kg
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3.07mm
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 "WB Mass" 61.4kg
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 "Operating time" 3.5h
check CATWBVPMNavReportPreview/TrailingZero on
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3.070mm
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 "WB Mass" 61.400kg
shot report_with_units.png CATWBVPMNavReportPreview
check CATWBVPMNavReportPreview/UnitsDisplay off
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3.070
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 4 "WB Mass" 61.400

# Saved under a name of its own, then to a file, which is not replaced before it is said so.
click CATWBVPMNavReportPreview/SavePushB
expect-box "WBReport_LA1_"
file report_files/report.xml
click CATWBVPMNavReportPreview/SaveToPushB
expect-box "The report was saved to"
file report_files/report.xml
answer No
click CATWBVPMNavReportPreview/SaveToPushB
file report_files/report.xml
answer Yes
click CATWBVPMNavReportPreview/SaveToPushB
expect-box "report_files/report.xml"
file cancel
click CATWBVPMNavReportPreview/SaveToPushB
file nowhere/report.xml
click CATWBVPMNavReportPreview/SaveToPushB
expect-box "could not be saved"

# The next preview opens as the last one was left.
close CATWBVPMNavReportPreview
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect CATWBVPMNavReportPreview/UnitsDisplay off
expect CATWBVPMNavReportPreview/TrailingZero on
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3.070
check CATWBVPMNavReportPreview/TrailingZero off
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3.07
close CATWBVPMNavReportPreview

# About the origin, to six digits; what is typed must be a number.
type CATWBVPMNavReportPanel/PointX "zero"
click CATWBVPMNavReportPanel/GenerateButton
expect-box "X of the reference point: \"zero\" is no number"
type CATWBVPMNavReportPanel/PointX 0
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGx 930.082
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIxx 749.934
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIyy 1154.33
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIzz 1772.39
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 POIxz -46.4294
close CATWBVPMNavReportPreview

# From a point of another unit, the inertia kept: 25.4 mm are an inch. 930.082 mm less 508 mm are 422.082 mm.
type CATWBVPMNavReportPanel/PointX 1016/2
check CATWBVPMNavReportPanel/KeepInertia on
units LENGTH in
expect CATWBVPMNavReportPanel/PointXLabel "X [in]"
expect CATWBVPMNavReportPanel/PointX 20
units LENGTH mm
expect CATWBVPMNavReportPanel/PointX 508
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGx 422.082
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIxx 735.358
close CATWBVPMNavReportPreview

# Turned by a right angle about z: x goes to y, and the inertias about x and y change places.
type CATWBVPMNavReportPanel/PointX ""
type CATWBVPMNavReportPanel/TurnZ 90
shot report_panel_turned.png CATWBVPMNavReportPanel
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGx 3.07
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy 930.082
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIxx 809.864
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 MOIyy 735.358
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 POIxy -0.638092
close CATWBVPMNavReportPreview
type CATWBVPMNavReportPanel/TurnZ ""

# Weighed values alone, in pounds: 101.426 kg are 223.606 lb.
units MASS lb
select CATWBVPMNavReportPanel/Precision Weighed
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Mass" 223.606
close CATWBVPMNavReportPreview
units MASS kg
select CATWBVPMNavReportPanel/Precision "active values"

# Another product.
open SC1
start CATWBVPMNavReport
expect CATWBVPMNavReportPanel/Product SC1
expect CATWBVPMNavReportPanel/Instances/List 0
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect CATWBVPMNavReportPreview/SelectionEditor SC1
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Mass" 107.921
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGz 400.021

# The preview stays when the panel goes.
click CATWBVPMNavReportPanel/CloseButton
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGz 400.021
click CATWBVPMNavReportPreview/ClosePushB
