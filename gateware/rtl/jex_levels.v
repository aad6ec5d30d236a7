// Which of the expressions triggers. They are levels: each one that holds, at a sample that is waited at, makes
// the next one count from the next sample on; the last one triggers. ANY: the first that holds triggers.
module jex_levels #(
    parameter LEVELS = 1,
    parameter ANY = 0
) (
    input wire clk,
    input wire [15:0] holds,
    input wire valid,
    input wire start_over,
    output wire [3:0] level,
    output wire trigger
);

    generate
        if (ANY != 0 || LEVELS == 1) begin : any
            wire unused = &{1'b0, clk, valid, start_over};
            assign level = 4'd0;
            assign trigger = |holds;
        end else begin : one_by_one
            localparam [31:0] LAST = LEVELS - 1;
            reg [3:0] waited_for = 4'd0;
            wire here = holds[waited_for];
            wire is_last = waited_for == LAST[3:0];
            always @(posedge clk)
                if (start_over) waited_for <= 4'd0;
                else if (valid & here & ~is_last) waited_for <= waited_for + 4'd1;
            assign level = waited_for;
            assign trigger = here & is_last;
        end
    endgenerate

endmodule
