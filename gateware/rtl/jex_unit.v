// A match unit: compares the port's sample with its settings and says a clock later whether it matches. What
// hangs on an unknown bit does not match.
//
// KIND is 0 equal, 1 not equal, 2 less, 3 greater, 4 in range; any other kind matches nothing. For the first
// two a bit of the port is judged by three bits of the settings:
//     EDGES CARE LEVEL      0 0 x any   0 1 0 low   0 1 1 high
//     1 0 0 no edge   1 0 1 either edge   1 1 0 falling edge   1 1 1 rising edge
// The others compare with LEVEL as a number, which is the lower bound of a range, and with UPPER.
//
// LOADABLE makes registers of the settings, which are loaded bit by bit, UPPER's lowest bit leaving first:
// they are a piece of a chain through all units of a core.
module jex_unit #(
    parameter WIDTH = 1,
    parameter LOADABLE = 0,
    parameter [2:0] KIND = 3'd0,
    parameter [WIDTH-1:0] EDGES = 0,
    parameter [WIDTH-1:0] CARE = 0,
    parameter [WIDTH-1:0] LEVEL = 0,
    parameter [WIDTH-1:0] UPPER = 0
) (
    input wire clk,
    input wire [WIDTH-1:0] now,
    input wire [WIDTH-1:0] changed,
    output reg match,
    input wire load_clock,
    input wire load,
    input wire load_in,
    output wire load_out
);

    wire [2:0] kind;
    wire [WIDTH-1:0] edges;
    wire [WIDTH-1:0] care;
    wire [WIDTH-1:0] level;
    wire [WIDTH-1:0] upper;

    generate
        if (LOADABLE != 0) begin : loadable
            reg [4*WIDTH+2:0] settings = {KIND, EDGES, CARE, LEVEL, UPPER};
            always @(posedge load_clock) if (load) settings <= {load_in, settings[4*WIDTH+2:1]};
            assign {kind, edges, care, level, upper} = settings;
            assign load_out = settings[0];
        end else begin : fixed
            wire unused = &{1'b0, load_clock, load};
            assign {kind, edges, care, level, upper} = {KIND, EDGES, CARE, LEVEL, UPPER};
            assign load_out = load_in;
        end
    endgenerate

    wire [WIDTH-1:0] wrong = (care & (now ^ level)) | (edges & (changed ^ (care | level)));
    // A fixed bound can be the least or the greatest number that there is.
    /* verilator lint_off CMPCONST */
    /* verilator lint_off UNSIGNED */
    wire fits = (kind == 3'd0 & ~|wrong) | (kind == 3'd1 & |wrong) | (kind == 3'd2 & now < level) |
        (kind == 3'd3 & now > level) | (kind == 3'd4 & now >= level & now <= upper);
    /* verilator lint_on UNSIGNED */
    /* verilator lint_on CMPCONST */

    initial match = 1'b0;
    // Not an assignment of the condition: an unknown one has to give 0.
    always @(posedge clk)
        if (fits) match <= 1'b1;
        else match <= 1'b0;

endmodule
