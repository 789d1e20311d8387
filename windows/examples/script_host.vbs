' A complete script host: the filter dialog, the fetch, the columns, the rows. Run it with
'   cscript //nologo script_host.vbs
Set report = WScript.CreateObject("QORArApRpt.Rpt10522")
WScript.Echo report.Property("Name")

report.ShowFilter
If report.Result("OK") Then report.GetReportData

If report.Result("OK") Then
    For i = 1 To report.Title.Count
        WScript.Echo report.Title.Item(i).Value("FCaption")
    Next
    Set rows = report.Rs
    Do Until rows.EOF
        line = ""
        For i = 1 To report.Header.Count
            field = report.Header.Item(i).Value("FColName")
            If HasField(rows, field) Then line = line & rows.Fields.Item(field).Value & vbTab
        Next
        WScript.Echo line
        rows.Move 1
    Loop
ElseIf report.Result("Error") <> "" Then
    WScript.Echo report.Result("Error")
Else
    WScript.Echo "cancelled"
End If

' The server leaves out the columns that the filter does not ask for.
Function HasField(rows, name)
    HasField = False
    For n = 0 To rows.Fields.Count - 1
        If rows.Fields.Item(n).Name = name Then HasField = True
    Next
End Function
