# A whole game of Tierfall on an empty board: two rounds run to their time out,
# the second ends the game (no score, so no bonus round) and the splash comes back.
click frmSelect.cmdTierfall
log
get RoundSeconds
get frmTierfall.StatusBar1.Panels(1)
get frmTierfall.StatusBar1.Panels(3)
get frmTierfall.frmSplash.Visible
get frmTierfall.cmdPlay.Caption
get frmTierfall.cmdPlay.ToolTipText
# The tune plays during the rounds.
click frmTierfall.mnuMusic
get MusicOn
get frmTierfall.mnuMusic.Checked
watch frmTierfall.lblMessage.Caption
watch frmTierfall.lblMessage.Visible
watch frmTierfall.StatusBar1.Panels(2)
watch frmTierfall.lblCurrentRound.Caption
watch frmTierfall.cmdPlay.Enabled
watch frmTierfall.frmSplash.Visible

echo -- round one
click frmTierfall.cmdPlay
log
get GameInProgress
get RoundNumber
get Score
get frmTierfall.lblCurrentScore.Caption
get frmTierfall.lblTime.Caption
get frmTierfall.StatusBar1.Panels(1)
get frmTierfall.cmdPlay.Caption
get frmTierfall.cmdPause.Enabled
get frmTierfall.cmdTakeScore.Enabled
get frmTierfall.mnuTime.Enabled
advance 1000
get frmTierfall.lblTime.Caption
get ElapsedSeconds
advance 44000
get frmTierfall.lblTime.Caption
get frmTierfall.Surface.Drawing
advance 15000
get frmTierfall.StatusBar1.Panels(3)
advance 9000
get frmTierfall.lblTime.Caption
advance 20000
get frmTierfall.lblTime.Caption
get ClockSeconds

echo -- time out, then round two
advance 1000
log
get RoundNumber
get ElapsedSeconds
get TakingScore
get frmTierfall.lblTime.Caption
get frmTierfall.cmdPause.Enabled

echo -- round two runs out: game over
advance 90000
log
get RoundNumber
get GameInProgress
get frmTierfall.lblMessage.Caption
get frmTierfall.lblMessage.Visible
get frmTierfall.cmdPlay.Caption
get frmTierfall.cmdPlay.ToolTipText
get frmTierfall.cmdPause.Enabled
get frmTierfall.cmdTakeScore.Enabled
get frmTierfall.cmdExit.Enabled
get frmTierfall.mnuTime.Enabled
get frmTierfall.lblTime.Visible
advance 2000
log
unwatch
get frmTierfall.StatusBar1.Panels(3)
