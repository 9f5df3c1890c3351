# The keyboard in the program's own forms: Tab and Enter on the selector's buttons,
# Tab and typing over a selected field, Enter and Escape in the scoring, name, Hall
# of Fame, about and save dialogs, and the stored name offered selected.
key frmSelect Escape
key frmSelect Tab
key frmSelect Shift+Tab
get frmSelect.ActiveControl
key frmSelect Enter
get frmTierfall.Visible
click frmTierfall.mnuSounds

echo -- the scoring dialog: Tab selects each field, typing replaces it, Enter is OK
click frmTierfall.mnuScoring
get frmTierfallCustomScoring.ActiveControl
get frmTierfallCustomScoring.txtBonus.SelText
key frmTierfallCustomScoring Tab
key frmTierfallCustomScoring Tab
key frmTierfallCustomScoring Shift+Tab
key frmTierfallCustomScoring Tab
key frmTierfallCustomScoring Tab
get frmTierfallCustomScoring.ActiveControl
get frmTierfallCustomScoring.txtTimeBonus.SelText
keys frmTierfallCustomScoring 5000000
key frmTierfallCustomScoring Enter
get TimeBonus
log

echo -- a game that enters the table: the name typed, Enter takes it
click frmTierfall.cmdPlay
click frmTierfall.cmdTakeScore
advance 60000
click frmTierfall.cmdTakeScore
advance 60000
click frmTierfall.cmdTakeScore
advance 60000
get frmHiScoreName.ActiveControl
get frmHiScoreName.txtPlayerName.Text
keys frmHiScoreName Ada Lind
key frmHiScoreName Enter
get UserName
get frmHighScores.ActiveControl
get frmHighScores.ScoreList(0).Caption
key frmHighScores Escape
advance 3000
log

echo -- the next game offers the stored name selected: what is typed replaces it
click frmTierfall.cmdPlay
click frmTierfall.cmdTakeScore
advance 60000
click frmTierfall.cmdTakeScore
advance 60000
click frmTierfall.cmdTakeScore
advance 60000
get frmHiScoreName.txtPlayerName.SelText
keys frmHiScoreName Bo
get frmHiScoreName.txtPlayerName.Text
key frmHiScoreName Escape
get UserName
get frmHighScores.ScoreList(0).Caption
get frmHighScores.ScoreList(2).Caption
key frmHighScores Enter
advance 3000
log

echo -- the about box and the save dialog
click frmTierfall.mnuAbout
get frmAbout.ActiveControl
key frmAbout Enter
click frmTierfall.mnuSave
get frmSave.ActiveControl
get frmSave.txtGameName.SelText
keys frmSave morning*
key frmSave Enter
get frmSave.File1.ListCount
get frmSave.Visible
key frmSave Escape
log
