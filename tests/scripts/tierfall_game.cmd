# A whole game of Tierfall by clicks, seed 1, enhanced scoring (the default).
# Round one is played out by hand; round two's clock is started by a pause and
# runs out; then the last game is replayed and ended.
#
# The deal, slot by slot (rows 1 to 6 from the top):
#   0 10C | 1 4D 2 5C 3 6H 4 1C | 5 8S 6 3C 7 7C 8 1H 9 1C | 10 9H 11 5D 12 1D 13 5S 14 1C 15 2D
#   16 2C 17 1H 18 1D 19 6D | 20 3S 21 3H; up card 7D; draws 1S 10H 6C 1C 9C 5H 1S ...
click frmSelect.cmdTierfall
get frmTierfall.Caption
click frmTierfall.mnuMusic
watch frmTierfall.StatusBar1.Panels(2)
watch frmTierfall.lblCurrentRound.Caption
watch frmTierfall.cmdTakeScore.Caption

echo -- round one: the clock waits for the first combination
click frmTierfall.cmdPlay
log
get FieldCards(7)
get UpCards(1)
get frmTierfall.lblCardCount.Caption
get frmTierfall.FieldCardPicture(0).ToolTipText
get frmTierfall.UpCardPicture.ToolTipText
advance 5000
get ElapsedSeconds
get frmTierfall.lblTime.Caption

echo -- refused: a covered card, and a total over 11
click frmTierfall.FieldCardPicture(0)
click frmTierfall.FieldCardPicture(7)
click frmTierfall.FieldCardPicture(20)
click frmTierfall.UpCardPicture
get CardTotal
click frmTierfall.FieldCardPicture(20)
log

echo -- a draw: 7D stays under 1S; 7C + 3S + 1S
click frmTierfall.PlayCardPicture
get UpCount
click frmTierfall.FieldCardPicture(7)
click frmTierfall.FieldCardPicture(20)
click frmTierfall.UpCardPicture
log
get Score
get GoalCount
get UpCount
get frmTierfall.UpCardPicture.ToolTipText
advance 1000
get ElapsedSeconds

echo -- 7D + 3H + 1H: the up card pays the row of the gap at 7; the next comes by itself
click frmTierfall.UpCardPicture
click frmTierfall.FieldCardPicture(21)
click frmTierfall.FieldCardPicture(17)
log
get Score
get UpCards(1)
get frmTierfall.lblCardCount.Caption

echo -- 10H + 1D
click frmTierfall.UpCardPicture
click frmTierfall.FieldCardPicture(12)
get Score

echo -- two draws put 6C and 1C back into the gaps at 7 and 12
click frmTierfall.PlayCardPicture
get Score
click frmTierfall.PlayCardPicture
get Score
get FieldCards(7)
get FieldCards(12)

echo -- 9C + 2C, 5D + 6C, 9H + 1C + 1D, 6D + 5H, 8S + 3C, 6H + 5S
click frmTierfall.UpCardPicture
click frmTierfall.FieldCardPicture(16)
get Score
click frmTierfall.FieldCardPicture(11)
click frmTierfall.FieldCardPicture(7)
get Score
click frmTierfall.FieldCardPicture(10)
click frmTierfall.FieldCardPicture(12)
click frmTierfall.FieldCardPicture(18)
get Score
click frmTierfall.FieldCardPicture(19)
click frmTierfall.UpCardPicture
get Score
click frmTierfall.FieldCardPicture(5)
click frmTierfall.FieldCardPicture(6)
get Score
click frmTierfall.FieldCardPicture(3)
click frmTierfall.FieldCardPicture(13)
get Score
get GoalCount
get frmTierfall.lblCurrentElevens.Caption
log

echo -- Take Score at 20 seconds: 9 combinations at 1,000 and 70 seconds at 100
advance 19000
get ElapsedSeconds
click frmTierfall.cmdTakeScore
get Score
get RoundNumber
get ElapsedSeconds
get frmTierfall.lblCurrentScore.Caption
get frmTierfall.lblMessage.Visible

echo -- round two: a pause and resume start the clock, which runs out
advance 3000
get ElapsedSeconds
click frmTierfall.cmdPause
click frmTierfall.cmdPause
advance 89000
get frmTierfall.lblTime.Caption
advance 1000
log
get Score
get GameInProgress
get LastScore
get frmTierfall.lblMessage.Caption
get frmTierfall.frmSplash.Visible
get frmTierfall.lblHighScore.Caption

echo -- replay: the same first deal; End Game records nothing
click frmTierfall.cmdTakeScore
get ReplayRequested
get FieldCards(0)
get FieldCards(21)
answer Yes
click frmTierfall.cmdPlay
log
get GameInProgress
get LastScore
get Score
unwatch
