10 ' ROLL moves all 400 rows in a 200-line mode too: hidden rows come into view.
20 SCREEN 3:CLS 3:CIRCLE(320,250),100,6,,,,F,2:SCREEN 0:ROLL 120,-50
