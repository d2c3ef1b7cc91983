# Makes the pictures of the documentation.
start CATTEQWBComputePartCmd
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1
resize CATWBVPMMainPanel 1100 640
shot main_panel.png CATWBVPMMainPanel

pick LA1/WNG-000.1
select CATWBVPMMainPanel/Precision "most precise values"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
click CATWBVPMMainPanel/Values
resize CATWBVPMMainPanel 1100 700
shot main_panel_computed.png CATWBVPMMainPanel

start CATWBComputeCmd
answer Yes
click CATWBComputeCmd/ComputeButton
expect-box "Warnings of the computation"
shot compute_product.png CATWBComputeCmd
click CATWBComputeCmd/CloseButton

start CATWBVPMNavReport
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1 LA1/PWR-000.1
shot report_panel.png CATWBVPMNavReportPanel
click CATWBVPMNavReportPanel/ClearButton
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
check CATWBVPMNavReportPreview/UnitsDisplay on
resize CATWBVPMNavReportPreview 1100 640
shot report_preview.png CATWBVPMNavReportPreview
check CATWBVPMNavReportPreview/UnitsDisplay off
click CATWBVPMNavReportPreview/ClosePushB
check CATWBVPMNavReportPanel/Distributive on
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
resize CATWBVPMNavDistributiveReportPreview 1100 700
shot distributive_report.png CATWBVPMNavDistributiveReportPreview
click CATWBVPMNavDistributiveReportPreview/ClosePushB
check CATWBVPMNavReportPanel/MaterialStatistics on
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
resize CATWBVPMNavMatStatPreview 1100 640
check CATWBVPMNavMatStatPreview/UnitsDisplay on
shot material_statistics.png CATWBVPMNavMatStatPreview
click CATWBVPMNavMatStatPreview/ClosePushButton
click CATWBVPMNavReportPanel/CloseButton

menu Tools/Units...
select CATWBVPMNavUnitsConversion/Preset Inch-pound
select CATWBVPMNavUnitsConversion/Table Length
shot units_panel.png CATWBVPMNavUnitsConversion
answer No
close CATWBVPMNavUnitsConversion

start CATTEQWBDefineFilterCmd
select CATWBVPMNavFilterPanel/NewLines "left in"
pick LA1/WNG-000.1
select CATWBVPMNavFilterPanel/NewLines "left out"
pick LA1/WNG-000.1/WNG-200L.1
type CATWBVPMNavFilterPanel/Name "Right wing"
shot filter_panel.png CATWBVPMNavFilterPanel
click CATWBVPMNavFilterPanel/CancelButton

start CATWBVPMNavGroup
pick LA1/FUS-000.1/FUS-100.1/FUS-110.1 LA1/PWR-000.1/PWR-100.1 LA1/FIN-000.1/FIN-300.1 LA1/PWR-000.1
type CATWBVPMNavGroupPanel/InstancesPage/Name "Nose heavy"
click CATWBVPMNavGroupPanel/InstancesPage/SaveButton
resize CATWBVPMNavGroupPanel 800 480
shot group_panel.png CATWBVPMNavGroupPanel
click CATWBVPMNavGroupPanel/CriteriaPage
select CATWBVPMNavGroupPanel/Attribute Mass
select CATWBVPMNavGroupPanel/Comparison >
type CATWBVPMNavGroupPanel/Value "20 lb"
click CATWBVPMNavGroupPanel/AddButton
select CATWBVPMNavGroupPanel/Attribute Next_inspection
select CATWBVPMNavGroupPanel/Comparison <
type CATWBVPMNavGroupPanel/Value 2027/01/01
click CATWBVPMNavGroupPanel/AddButton
select CATWBVPMNavGroupPanel/Attribute Vendor
select CATWBVPMNavGroupPanel/Comparison contains
type CATWBVPMNavGroupPanel/Value "vendor f"
click CATWBVPMNavGroupPanel/AddButton
type CATWBVPMNavGroupPanel/CriteriaPage/Name "Inspected soon"
click CATWBVPMNavGroupPanel/CriteriaPage/SaveButton
resize CATWBVPMNavGroupPanel 800 400
shot group_criteria.png CATWBVPMNavGroupPanel
click CATWBVPMNavGroupPanel/CloseButton

start CATTEQWBComputePartCmd
pick LA1/FIN-000.1/FIN-300.1
click CATWBVPMMainPanel/Values
type CATWBVPMMainPanel/StatedMassEditor "0.42"
type CATWBVPMMainPanel/CentreXEditor 900
type CATWBVPMMainPanel/CentreYEditor 0
type CATWBVPMMainPanel/CentreZEditor -200
click CATWBVPMMainPanel/ApplyButton
key Ctrl+S
click CATWBVPMNavSaveManagement/PushButton001
expect-box "All your changes were saved"
close CATWBVPMNavSaveManagement

start CATTEQWBComputePartCmd
pick LA1/FIN-000.1/FIN-300.1
resize CATWBVPMMainPanel 1000 640
click CATWBVPMMainPanel/Values
type CATWBVPMMainPanel/StatedMassEditor "1 lb"
type CATWBVPMMainPanel/CentreXEditor left
click CATWBVPMMainPanel/CentreYEditor
shot main_panel_edited.png CATWBVPMMainPanel
click CATWBVPMMainPanel/UndoButton
select CATWBVPMMainPanel/PrecisionKindChoice "in percent"
type CATWBVPMMainPanel/LowerPrecisionEditor 5
type CATWBVPMMainPanel/UpperPrecisionEditor 10
click CATWBVPMMainPanel/ApplyButton
click CATWBVPMMainPanel/Changes
shot main_panel_changes.png CATWBVPMMainPanel
