' A lighting desk that knows the plug-in by name alone. It carries out a file of console commands: the
' desk's own with its own calls, all others by the tool's Run, and answers each as the console does.
'   cscript //nologo desk.vbs BASEFILENAME COMMANDS
Option Explicit

Class Stream
  Private calls

  Public Sub UserInteraction
    Add "[""UserInteraction""]"
  End Sub

  Public Sub SetChannel(channel, value, flag)
    If Not flag Then Err.Raise 1000, "desk.vbs", "SetChannel lacks its flag"
    Add "[""SetChannel""," & channel & "," & value & "]"
  End Sub

  ' The calls since the last time.
  Public Function Take
    Take = calls
    calls = ""
  End Function

  Private Sub Add(text)
    If calls <> "" Then calls = calls & ","
    calls = calls & text
  End Sub
End Class

Class Project
  Public Name
  Public BaseFilename
End Class

Class Helper
  Public ChannelMAXCHANNELS
  Public MyStream
  Public Project
End Class

Dim desk, plugIn, info, tool

Sub Start(base)
  Set desk = New Helper
  desk.ChannelMAXCHANNELS = 512
  Set desk.MyStream = New Stream
  Set desk.Project = New Project
  desk.Project.BaseFilename = base
  desk.Project.Name = Mid(base, InStrRev(base, "\") + 1)
  Set plugIn = CreateObject("Korvane.clsTharnPlugIn")
  Set info = plugIn.ITharnModule_ModuleInfo
  CheckInformation
  If Not plugIn.ITharnPlugin_Init("desk.vbs", "Korvane.dll", desk) Then Fail "Init is not true"
  Set tool = info.Tool
  If tool.Visible Then Fail "the tool is visible before it was opened"
  tool.Show
  If Not tool.Visible Then Fail "the tool is not visible"
End Sub

Sub Fail(text)
  WScript.Echo "FAIL " & text
  WScript.Quit 1
End Sub

Sub Expect(what, found, expected)
  If found <> expected Then Fail what & " is " & found & ", not " & expected
End Sub

' The fourteen fields by index and by name, and the messages.
Sub CheckInformation
  Dim fields, index, message, messages
  fields = Array("{70014daa-4c46-11da-9507-00e17161165f}", "Matrix", "Matrix, Version 2.9.2", _
                 info.Author, 0, True, 2, "MatrixForm", Nothing, 0, 0, True, True, Nothing)
  For index = 1 To 14
    If index = 9 Or index = 14 Then
      If Not IsObject(info.Item(index)) Then Fail "field " & index & " is no object"
    Else
      Expect "field " & index, info.Item(index), fields(index - 1)
    End If
  Next
  Expect "Name", info.Name, "Matrix"
  Expect "ToolName", info.ToolName, "MatrixForm"
  If Not info.Tool Is info.Item(9) Then Fail "field 9 is not the tool"
  For Each message In info.Messages
    messages = messages & " " & message
  Next
  Expect "Messages", messages, " 9 14 35 31"
  Expect "Messages.Count", info.Messages.Count, 4
  Expect "Messages.Item(3)", info.Messages.Item(3), 35
  info.Messages.Add 77
  Expect "Messages.Count after Add", info.Messages.Count, 5
  Expect "PluginName", plugIn.PluginName, "Matrix"
End Sub

' The reply to a command.
Function Answer(line)
  Dim words, first, second, number, arg1, arg2
  words = Split(line & "   ", " ")
  number = 9 : arg1 = 0 : arg2 = 0
  Select Case words(0)
    Case "open"
      tool.Show
      Answer = "{""ok"":true}"
    Case "beat"
      Answer = Result(plugIn.ITharnPlugin_MessageHandle(number, arg1, arg2))
    Case "message"
      number = CLng(words(1))
      If words(2) <> "" Then arg1 = CLng(words(2))
      Answer = Result(plugIn.ITharnPlugin_MessageHandle(number, arg1, arg2))
    Case "call"
      Answer = OwnCall(line, words)
    Case "calls"
      first = "{""ok"":true,""calls"":[" & desk.MyStream.Take & "]}"
      second = tool.Run(line)
      If first <> second Then Fail "Run tells other calls than the desk got"
      Answer = first
    Case Else
      Answer = tool.Run(line)
  End Select
End Function

' Calls of the desk's own; what a person must answer is left to Run.
Function OwnCall(line, words)
  Select Case words(1)
    Case "ITharnPlugin_Enable"
      OwnCall = Result(Flag(plugIn.ITharnPlugin_Enable))
    Case "ITharnPlugin_Disable"
      OwnCall = Result(Flag(plugIn.ITharnPlugin_Disable))
    Case "ITharnPlugin_PluginName"
      OwnCall = Result("""" & plugIn.ITharnPlugin_PluginName & """")
    Case "ITharnTool_AskToSaveProjectData"
      OwnCall = Result(Flag(tool.ITharnTool_AskToSaveProjectData))
    Case "ITharnTool_ViewMode"
      tool.ITharnTool_ViewMode = CLng(words(2))
      OwnCall = Result("null")
    Case Else
      OwnCall = tool.Run(line)
  End Select
End Function

Function Flag(value)
  Flag = "false"
  If value Then Flag = "true"
End Function

Function Result(value)
  Result = "{""ok"":true,""result"":" & value & "}"
End Function

Dim commands, line
Start WScript.Arguments(0)
Set commands = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1))
Do Until commands.AtEndOfStream
  line = Answer(commands.ReadLine)
  If line <> "" Then WScript.Echo line
Loop
commands.Close
tool.Hide
Set tool = Nothing
Set info = Nothing
Set plugIn = Nothing
