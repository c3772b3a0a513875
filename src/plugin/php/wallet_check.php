<?php

/**
 * Asks this site what a wallet asks it, and compares the answers with what they should be.
 *
 * @param array $rows The names whose keys are asked for.
 * @return true|WP_Error True, or what is wrong and what to do about it.
 */
function brasslet_ask_as_wallet( $rows ) {
	if ( brasslet_lies_in_folder_of_network() ) {
		list( $finding, $advice ) = brasslet_folder_obstacle();
		return brasslet_complaint( $finding, $advice );
	}
	if ( ! brasslet_has_permalinks() ) {
		list( $finding ) = brasslet_permalink_obstacle();
		return brasslet_complaint( $finding, 'Change them first, then look here again.' );
	}
	$found = brasslet_ask_for_document();
	foreach ( $rows as $row ) {
		$found = is_wp_error( $found ) ? $found : brasslet_ask_for_key( $row );
		$found = is_wp_error( $found ) ? $found : brasslet_ask_for_payment( $row );
	}
	return $found;
}

/**
 * The URL of the discovery document: at the root of the host, wherever WordPress lies, because wallets look there.
 *
 * @return string
 */
function brasslet_document_url() {
	return 'https://' . brasslet_host() . BRASSLET_DISCOVERY_PATH;
}

/**
 * Asks this site for its discovery document.
 *
 * @return true|WP_Error True when its names lead here, or what is wrong and what to do about it.
 */
function brasslet_ask_for_document() {
	$url      = brasslet_document_url();
	$document = brasslet_ask_itself( $url );
	if ( is_wp_error( $document ) ) {
		return $document;
	}
	$wanted = array_merge( array( 'pki', 'paymentDestination' ), array_keys( brasslet_payment_capabilities( '' ) ) );
	foreach ( $wanted as $capability ) {
		$given = $document['capabilities'][ $capability ] ?? '';
		$own   = set_url_scheme( brasslet_capabilities()[ $capability ], 'https' );
		if ( set_url_scheme( $own, 'http' ) === $given ) {
			return brasslet_complaint(
				sprintf( '%s sends wallets to addresses without https.', $url ),
				'Under Settings, General, let both addresses of the site begin with "https://".'
			);
		}
		if ( $own !== $given ) {
			return brasslet_complaint(
				sprintf( '%s sends wallets somewhere else than to this site.', $url ),
				'Remove the file, or the other plugin, that answers there in place of Brasslet.'
			);
		}
	}
	return true;
}

/**
 * Asks this site for the key of a name.
 *
 * @param array $row The name's row.
 * @return true|WP_Error True when it is the one in the row, or what is wrong and what to do about it.
 */
function brasslet_ask_for_key( $row ) {
	$url = brasslet_capability_url( 'pki', $row );
	$key = brasslet_ask_itself( $url );
	if ( is_wp_error( $key ) ) {
		return $key;
	}
	if ( brasslet_handle( $row ) !== ( $key['handle'] ?? '' ) || $row['pubkey'] !== ( $key['pubkey'] ?? '' ) ) {
		return brasslet_complaint(
			sprintf( '%1$s does not answer with the key of %2$s.', $url, brasslet_handle( $row ) ),
			'Clear the caches of your site and of its host, and let them keep nothing below /wp-json/brasslet/.'
		);
	}
	return true;
}

/**
 * Asks this site where to pay a name, as the bsvalias documents have a wallet ask.
 *
 * @param array $row The name's row.
 * @return true|WP_Error True when address and script are those of the row, or what is wrong and what to do about it.
 */
function brasslet_ask_for_payment( $row ) {
	$url   = brasslet_capability_url( 'paymentDestination', $row );
	$reply = brasslet_ask_itself(
		$url,
		array(
			'senderName'   => 'Site Health',
			'senderHandle' => brasslet_handle( $row ),
			'dt'           => gmdate( 'Y-m-d\TH:i:s.000\Z' ),
			'amount'       => 1,
			'purpose'      => 'Site Health',
			'signature'    => '',
		)
	);
	if ( is_wp_error( $reply ) ) {
		return $reply;
	}
	if ( $row['address'] !== ( $reply['address'] ?? '' ) ) {
		return brasslet_complaint(
			sprintf( '%1$s does not answer with the address of %2$s.', $url, brasslet_handle( $row ) ),
			'Let no cache and no other plugin answer below /wp-json/brasslet/ in place of Brasslet.'
		);
	}
	if ( brasslet_script( $row['address'] ) !== ( $reply['output'] ?? '' ) ) {
		return brasslet_complaint(
			sprintf( '%1$s does not answer with the script that pays %2$s.', $url, brasslet_handle( $row ) ),
			'Let the web server, and every plugin for security, hand over POST requests with their JSON body.'
		);
	}
	return true;
}

/**
 * Asks this site for the outputs that pay a name, as wallets do that hand payments over.
 *
 * @param array $row The name's row.
 * @return true|WP_Error True when they are those of the row, or what is wrong and what to do about it.
 */
function brasslet_ask_for_outputs( $row ) {
	$url    = brasslet_capability_url( '2a40af698840', $row );
	$reply  = brasslet_ask_itself( $url, array( 'satoshis' => 1 ) );
	$wanted = array(
		array(
			'script'   => brasslet_script( $row['address'] ),
			'satoshis' => 1,
		),
	);
	if ( is_wp_error( $reply ) ) {
		return $reply;
	}
	if ( $wanted !== ( $reply['outputs'] ?? null ) ) {
		return brasslet_complaint(
			sprintf( '%1$s does not answer with the output that pays %2$s.', $url, brasslet_handle( $row ) ),
			'Let no cache and no other plugin answer below /wp-json/brasslet/ in place of Brasslet.'
		);
	}
	return true;
}

/**
 * The URL that a wallet asks for a name: that of the capability, with the alias filled in.
 *
 * @param string $capability The capability.
 * @param array  $row        The name's row.
 * @return string
 */
function brasslet_capability_url( $capability, $row ) {
	return set_url_scheme( str_replace( '{alias}', $row['alias'], brasslet_capabilities()[ $capability ] ), 'https' );
}

/**
 * Asks this site for a JSON document as a wallet does: with its certificate checked, and following no redirect.
 *
 * @param string     $url  The URL.
 * @param array|null $body What is posted as JSON; null asks with GET.
 * @return array|WP_Error The document, or what is wrong and what to do about it.
 */
function brasslet_ask_itself( $url, $body = null ) {
	$request = array(
		'timeout'             => BRASSLET_HEALTH_SECONDS,
		'redirection'         => 0,
		'limit_response_size' => 65536,
	);
	if ( null !== $body ) {
		$request['method']  = 'POST';
		$request['headers'] = array( 'Content-Type' => 'application/json' );
		$request['body']    = wp_json_encode( $body );
	}
	$reply = wp_remote_request( $url, $request );
	if ( is_wp_error( $reply ) ) {
		return brasslet_failure( $url, $reply->get_error_message() );
	}
	$status = (int) wp_remote_retrieve_response_code( $reply );
	if ( 200 !== $status ) {
		return brasslet_complaint(
			sprintf( '%1$s answers with HTTP status %2$d instead of 200.', $url, $status ),
			'Let the web server, and every plugin for security or redirects, hand that address to this WordPress.'
		);
	}
	$document = json_decode( wp_remote_retrieve_body( $reply ), true );
	if ( ! is_array( $document ) ) {
		return brasslet_complaint(
			sprintf( '%s answers with a page or a file instead of JSON.', $url ),
			'Let the web server, and every plugin that makes pages, hand that address to this WordPress.'
		);
	}
	return $document;
}

/**
 * Tells a bad certificate, which wallets see as well, from whatever else keeps a server from asking itself: a name that
 * it resolves in another way than the world does, a firewall, too few processes for PHP, a limit of its host.
 *
 * @param string $url  The URL.
 * @param string $said What WordPress says about the request that failed.
 * @return WP_Error
 */
function brasslet_failure( $url, $said ) {
	// CURLE_PEER_FAILED_VERIFICATION by its old number and its new one; then PHP's own streams, where there is no curl.
	$is_certificate = '/^cURL error (51|60):'
		. '|^(?!cURL).*(certificate verify failed|did not match (expected CN|the requested domain name))/s';
	if ( 1 === preg_match( $is_certificate, $said ) ) {
		return brasslet_complaint(
			sprintf( '%1$s cannot be reached (%2$s).', $url, $said ),
			'Ask your host to serve the site over https, with a certificate that browsers trust.'
		);
	}
	return brasslet_complaint(
		sprintf( 'Your own server could not ask %1$s (%2$s). Wallets may still be able to.', $url, $said )
		. ' ' . 'Open the link below in a browser: if it shows "bsvalias", wallets see that too.',
		'For this check, ask your host to let the server reach itself and answer more than one request at once.',
		'brasslet_unasked'
	);
}

/**
 * Makes one text of what is wrong and what to do about it.
 *
 * @param string $finding A sentence.
 * @param string $advice  A sentence.
 * @param string $code    The code "brasslet_unasked" says that nothing is known to be wrong.
 * @return WP_Error
 */
function brasslet_complaint( $finding, $advice, $code = 'brasslet_health' ) {
	return new WP_Error( $code, $finding . ' ' . $advice );
}
