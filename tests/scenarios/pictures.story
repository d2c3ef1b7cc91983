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
