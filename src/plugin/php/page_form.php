<?php

/**
 * Shows the switch, the broadcaster and whether there is a key.
 */
function brasslet_show_payments() {
	$payments = brasslet_payments();
	$address  = '' === $payments['broadcaster'] ? BRASSLET_BROADCASTER : $payments['broadcaster'];
	// phpcs:ignore WordPress.Security.NonceVerification -- what was typed and not saved is shown again.
	$typed = sanitize_text_field( brasslet_string( wp_unslash( $_POST['broadcaster'] ?? '' ) ) );
	if ( '' !== $typed && brasslet_tidy_address( $typed ) !== $address ) {
		$address = $typed;
	}
	echo '<h2 id="brasslet-payments">Payments handed over</h2>'
		. '<p>Many wallets of today hand a payment over: they ask this site for outputs, and deliver the signed'
		. ' transaction to it. The site then gives it to the broadcaster that you name here. While this is off, only'
		. ' wallets that broadcast payments themselves can pay your names.</p>'
		. '<p>The broadcaster must be an ARC service. It learns of each payment that is handed over to this site.</p>'
		. '<form method="post" action="' . esc_url( brasslet_page_url() ) . '">';
	wp_nonce_field( 'brasslet_payments', 'brasslet_payments_nonce' );
	echo '<table class="form-table" role="presentation">'
		. '<tr><th scope="row">Switch</th><td><label><input type="checkbox" name="on" value="1"'
		. checked( $payments['on'], true, false ) . '> Wallets may hand payments over to this site</label></td></tr>'
		. '<tr><th scope="row"><label for="brasslet-broadcaster">Address of the broadcaster</label></th><td>'
		. '<input type="url" class="brasslet-field" id="brasslet-broadcaster" name="broadcaster" required'
		. ' pattern="https://.+" title="An address that begins with https://" value="' . esc_attr( $address ) . '">'
		. '</td></tr>'
		. '<tr><th scope="row"><label for="brasslet-key">Key</label></th><td>';
	brasslet_show_key_field( brasslet_broadcaster_key( $payments['broadcaster'] ) );
	echo '</td></tr></table><p class="submit">'
		. '<button class="button button-primary" name="brasslet_payments" value="save">Save changes</button> '
		. '<button class="button" name="brasslet_payments" value="try" formnovalidate>Try the saved broadcaster'
		. '</button></p></form>';
}

/**
 * Shows the field for the key. The key that is stored is not in it.
 *
 * @param string|null $key The stored key; empty when there is none, null when it cannot be read.
 */
function brasslet_show_key_field( $key ) {
	$states = array(
		'none'   => 'No key is stored. Leave this empty if the broadcaster wants none.',
		'stored' => 'A key is stored, encrypted. Leave this empty to keep it.',
		'lost'   => 'The stored key cannot be read any more: the salts in wp-config.php have changed. Type it again.',
	);
	$state  = null === $key ? 'lost' : ( '' === $key ? 'none' : 'stored' );
	echo '<input type="password" class="brasslet-field" id="brasslet-key" name="key" value="" maxlength="512"'
		. ' autocomplete="new-password" spellcheck="false" aria-describedby="brasslet-key-state">'
		. '<p class="description" id="brasslet-key-state">' . esc_html( $states[ $state ] ) . '</p>';
	if ( 'none' !== $state ) {
		echo '<p><label><input type="checkbox" name="forget" value="1"> Forget the stored key</label></p>';
	}
}
