*> One operation over tables of a thousand packed decimals, so that the call itself does not count.
*> 1 add, 2 subtract, 3 multiply, 4 divide: RESULTS(N) from LEFTS(N) and RIGHTS(N).
*> 5 compare: adds to LESS-COUNT how many LEFTS are below their RIGHTS.
*> 6 sum: adds all LEFTS to RESULTS(1).
identification division.
program-id. packed_tables.
data division.
local-storage section.
01 n usage binary-long.
linkage section.
01 operation usage binary-long.
01 left-table.
   05 lefts pic s9(14)v9(9) comp-3 occurs 1000.
01 right-table.
   05 rights pic s9(14)v9(9) comp-3 occurs 1000.
01 result-table.
   05 results pic s9(14)v9(9) comp-3 occurs 1000.
01 less-count usage binary-long.
procedure division using operation left-table right-table result-table less-count.
    evaluate operation
    when 1
        perform varying n from 1 by 1 until n > 1000
            add lefts(n) rights(n) giving results(n)
        end-perform
    when 2
        perform varying n from 1 by 1 until n > 1000
            subtract rights(n) from lefts(n) giving results(n)
        end-perform
    when 3
        perform varying n from 1 by 1 until n > 1000
            multiply lefts(n) by rights(n) giving results(n) rounded
        end-perform
    when 4
        perform varying n from 1 by 1 until n > 1000
            divide lefts(n) by rights(n) giving results(n) rounded
        end-perform
    when 5
        perform varying n from 1 by 1 until n > 1000
            if lefts(n) < rights(n)
                add 1 to less-count
            end-if
        end-perform
    when 6
        perform varying n from 1 by 1 until n > 1000
            add lefts(n) to results(1)
        end-perform
    end-evaluate
    goback.
