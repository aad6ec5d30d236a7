module top(input a, input clk);
assert property (@(posedge clk) a) if (a) if (!a) begin end else $info; else if (a) $error;
`define named property p(sequence s); checker
property covergroup cg
endmodule
